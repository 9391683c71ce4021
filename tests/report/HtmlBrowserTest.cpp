#include "support/Browser.h"
#include "support/ReportRun.h"
#include "support/SampleModels.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QtTest>

using namespace ZYN;
using namespace Qt::StringLiterals;

/// HTML reports in a real browser: what it makes of the tags, and what a person sees.
class HtmlBrowserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void PanelTables();
    void OnlyFailuresAreRed_data();
    void OnlyFailuresAreRed();
    void LogoLiesBesideThePage();
    void HostileNamesDoNotNestTables();

private:
    QJsonObject Findings(const QString& caseName);

    QTemporaryDir folder;
};

namespace {

const QString failedColour = u"rgb(255, 102, 102)"_s;

QByteArray Content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A table as its class and then, row by row, class and number of cells.
QString Shape(const QJsonValue& table)
{
    QStringList rows;
    const QJsonArray values = table.toArray();
    for (const QJsonValue& value : values)
        rows.append(value.toString());
    return rows.join(u" | "_s);
}

qsizetype PixelsOf(const QImage& image, QRgb colour)
{
    qsizetype count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == colour;
    }
    return count;
}

} // namespace

/// Exports a sample, opens a copy with the script appended and reads what the script found.
QJsonObject HtmlBrowserTest::Findings(const QString& caseName)
{
    const ReportRun run = ExportSample(u"HTML"_s, *SampleModels::MakeReportCase(caseName), folder.path());
    QFile copy(folder.filePath(u"probed.html"_s));
    if (!run.complete || !copy.open(QIODevice::WriteOnly))
        return {};
    copy.write(run.content + "<script>" +
               Content(QStringLiteral(ZYN_SOURCE_DIR "/tests/report/page_findings.js")) + "</script>");
    copy.close();

    const Browser::Outcome outcome = Browser::Open(copy.fileName());
    if (!outcome.error.isEmpty()) {
        qWarning("%s", qPrintable(outcome.error));
        return {};
    }
    const QByteArray mark = "data-findings=\"";
    const qsizetype start = outcome.dom.indexOf(mark) + mark.size();
    const QByteArray encoded = outcome.dom.mid(start, outcome.dom.indexOf('"', start) - start);
    return QJsonDocument::fromJson(QByteArray::fromPercentEncoding(encoded)).object();
}

void HtmlBrowserTest::PanelTables()
{
    const QJsonObject findings = Findings(u"panel"_s);
    QVERIFY(!findings.isEmpty());
    QCOMPARE(findings[u"charset"_s].toString(), u"UTF-8"_s);
    QCOMPARE(findings[u"nestedTables"_s].toInt(-1), 0);
    QVERIFY(findings[u"rightAligned"_s].toBool());

    const QString head = u" | th 8 | tg 8"_s;
    // A panel item's program overview goes on in the item's own table.
    const QString item =
        u"overview | overview 2 | overview 4 | overview 4 | overview 2 | overview 4 | overview 4"_s;
    const QString itemResults = head + u" | ts 8 | tm 8 | tm 8 | empty 1"_s;
    const QStringList expected{
        u"overview | overview 2 | overview 4 | overview 4 | overview 4 | overview 4 | overview 4 | overview "
        u"6 | "
        "overview 4 | overview 4"_s,
        u"overview | overview 2 | overview 4 | overview 4"_s,
        // The step without cells is stood for by its measurement 0.
        head + u" | ts 0 | ts 8 | empty 1"_s,
        item,
        itemResults,
        item,
        itemResults,
        item,
        itemResults,
    };
    QStringList tables;
    const QJsonArray found = findings[u"tables"_s].toArray();
    for (const QJsonValue& table : found)
        tables.append(Shape(table));
    QCOMPARE(tables, expected);

    QStringList headlines;
    const QJsonArray paragraphs = findings[u"headlines"_s].toArray();
    for (const QJsonValue& paragraph : paragraphs)
        headlines.append(paragraph.toString());
    const QStringList program{u"Program:"_s, u"Results:"_s};
    QCOMPARE(headlines, program + QStringList{u"Panel Item 1"_s} + program + QStringList{u"Panel Item 2"_s} +
                            program + QStringList{u"Panel Item 3"_s} + program);
}

void HtmlBrowserTest::OnlyFailuresAreRed_data()
{
    QTest::addColumn<QString>("caseName");
    QTest::addColumn<int>("failures");
    QTest::newRow("passed") << u"passed-unit"_s << 0;
    // The panel's own verdict; unit, program, group, step and measurement of two items.
    QTest::newRow("panel") << u"panel"_s << 11;
}

void HtmlBrowserTest::OnlyFailuresAreRed()
{
    QFETCH(QString, caseName);
    QFETCH(int, failures);
    const QJsonArray verdicts = Findings(caseName)[u"verdicts"_s].toArray();
    QVERIFY(!verdicts.isEmpty());
    int red = 0;
    for (const QJsonValue& verdict : verdicts) {
        const bool failed = verdict[0].toString() == u"FAIL";
        QCOMPARE(verdict[2].toString() == failedColour, failed);
        const QStringList failureTexts{u"FAIL"_s, u"ABORTED"_s};
        QCOMPARE(failureTexts.contains(verdict[1].toString()), failed);
        red += failed;
    }
    QCOMPARE(red, failures);

    const QString picture = folder.filePath(u"page.png"_s);
    const QString error = Browser::Screenshot(folder.filePath(u"report.html"_s), picture, 2400);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    const QImage image(picture);
    QCOMPARE(image.width(), 1000);
    QCOMPARE(PixelsOf(image, qRgb(0xff, 0x66, 0x66)) > 10'000, failures > 0);
    QVERIFY(PixelsOf(image, qRgb(0x00, 0x9a, 0xa3)) > 10'000);
}

void HtmlBrowserTest::LogoLiesBesideThePage()
{
    const QJsonArray images = Findings(u"panel-logo"_s)[u"images"_s].toArray();
    QCOMPARE(images.size(), 1);
    QCOMPARE(images[0][0].toString(), u"media/ReportLogo.png"_s);
    QVERIFY(images[0][1].toBool());
    QCOMPARE(images[0][2].toInt(), 120);
}

void HtmlBrowserTest::HostileNamesDoNotNestTables()
{
    const QJsonObject findings = Findings(u"hostile-names"_s);
    QCOMPARE(findings[u"charset"_s].toString(), u"UTF-8"_s);
    QCOMPARE(findings[u"nestedTables"_s].toInt(-1), 0);
    QCOMPARE(findings[u"tables"_s].toArray().size(), 3);
}

QTEST_GUILESS_MAIN(HtmlBrowserTest)
#include "HtmlBrowserTest.moc"
