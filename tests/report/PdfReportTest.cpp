#include "support/ReportRun.h"
#include "support/SampleModels.h"

#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderPDF.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QImage>
#include <QtTest/QtTest>

#include <algorithm>
#include <cmath>

using namespace ZYN;

/// Reads the PDF back with Poppler's tools.
class PdfReportTest : public QObject {
    Q_OBJECT
private slots:
    void showsEveryRowInOrder();
    void cutsNoRowAtTheEndOfAPage();
    void embedsItsFonts();
    void keepsToItsMargins_data();
    void keepsToItsMargins();
    void pagesGrowWithTheRows();
    void loadsTheLogoAndNothingElse();
    void secondReportOfOneBuilder();
    void tellsWhatDidNotReachTheDisk_data();
    void tellsWhatDidNotReachTheDisk();

private:
    QString Path(const QString& name) const { return m_folder.filePath(name); }
    /// Writes a unit's report under a name in the test's folder.
    QString Export(UUTTest* test, const QString& name, const QString& logo = QString());

    QTemporaryDir m_folder;
};

namespace {

struct Word {
    int page;
    QRectF box;
    QString text;
};

struct Layout {
    QList<QSizeF> pages;
    QList<Word> words;
};

QByteArray Output(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return {};
    return process.readAllStandardOutput();
}

/// Pages and words with their places, in points from the upper left corner.
Layout Read(const QString& pdf)
{
    Layout layout;
    QXmlStreamReader reader(
        Output(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")}));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto attributes = reader.attributes();
        const auto number = [&](const QString& name) { return attributes.value(name).toDouble(); };
        if (reader.name() == QLatin1String("page"))
            layout.pages.append({number("width"), number("height")});
        if (reader.name() == QLatin1String("word")) {
            const QRectF box(QPointF(number("xMin"), number("yMin")),
                             QPointF(number("xMax"), number("yMax")));
            layout.words.append({static_cast<int>(layout.pages.size()), box, reader.readElementText()});
        }
    }
    return layout;
}

/// A unit whose one step has this many measurements.
QSharedPointer<UUTTest> UnitWithRows(int rows, const QString& name)
{
    const auto program = QSharedPointer<TestProgram>::create(1, QStringLiteral("Rows"), 0);
    const auto group = QSharedPointer<TestGroup>::create(2, QStringLiteral("Group"), nullptr, 0u, -1,
                                                         ZYN_GROUP_USER, nullptr);
    const auto step = QSharedPointer<TestStep>::create(3, QStringLiteral("Step"), nullptr, 0u, -1, QString());
    program->AddGroup(group);
    group->AddStep(step);
    auto* const set = new TestResultSet(program, nullptr);
    set->AddResult(new TestResult(program));
    set->AddResult(new TestResult(group));
    set->AddResult(new TestResult(step));
    for (int row = 1; row <= rows; ++row) {
        const auto measurement =
            QSharedPointer<TestMeasurement>::create(row, name.arg(row), ZYN_ADDRESS_INTEGER, nullptr, 0u, -1);
        step->AddMeasurement(measurement);
        auto* const result = new TestResult(measurement);
        result->SetValue(row);
        set->AddResult(result);
    }
    auto test = QSharedPointer<UUTTest>::create(1, QStringLiteral("Unit"));
    test->AssignResultSet(set);
    return test;
}

} // namespace

QString PdfReportTest::Export(UUTTest* test, const QString& name, const QString& logo)
{
    CExportServiceReport service;
    service.SetFormat(QStringLiteral("PDF"));
    service.SetOutputFileName(Path(name));
    service.SetReportLogoImage(logo);
    return service.Export(test) && service.OutputComplete() ? Path(name) : QString();
}

void PdfReportTest::showsEveryRowInOrder()
{
    constexpr int rows = 150;
    const QString pdf =
        Export(UnitWithRows(rows, QStringLiteral("row%1end")).get(), QStringLiteral("rows.pdf"));
    QVERIFY(!pdf.isEmpty());
    QStringList seen;
    for (const Word& word : Read(pdf).words) {
        if (word.text.startsWith(QLatin1String("row")))
            seen.append(word.text);
    }
    QStringList expected;
    for (int row = 1; row <= rows; ++row)
        expected.append(QStringLiteral("row%1end").arg(row));
    QCOMPARE(seen, expected);
}

void PdfReportTest::cutsNoRowAtTheEndOfAPage()
{
    constexpr int rows = 150;
    const QString pdf =
        Export(UnitWithRows(rows, QStringLiteral("row%1end")).get(), QStringLiteral("rows.pdf"));
    const QList<Word> words = Read(pdf).words;
    QVERIFY(words.last().page > 1);
    int whole = 0;
    for (const Word& name : words) {
        if (!name.text.startsWith(QLatin1String("row")))
            continue;
        // The verdict of the row stands on the same page at the same height.
        whole += std::any_of(words.begin(), words.end(), [&](const Word& word) {
            return word.text == QLatin1String("DONE") && word.page == name.page &&
                   std::abs(word.box.center().y() - name.box.center().y()) < 1.0;
        });
    }
    QCOMPARE(whole, rows);
}

void PdfReportTest::embedsItsFonts()
{
    const QString pdf = Export(SampleModels::Panel().get(), QStringLiteral("fonts.pdf"));
    // name, type, encoding, emb, sub, uni, object ID
    const QList<QByteArray> lines = Output(QStringLiteral("pdffonts"), {pdf}).trimmed().split('\n').mid(2);
    QVERIFY(!lines.isEmpty());
    for (const QByteArray& line : lines)
        QVERIFY2(QRegularExpression(QStringLiteral(" yes +(yes|no) +(yes|no) +\\d+ +\\d+$"))
                     .match(QString::fromUtf8(line))
                     .hasMatch(),
                 line.constData());
}

void PdfReportTest::keepsToItsMargins_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("short names") << "row %1";
    QTest::newRow("a name without blanks") << QString(200, QLatin1Char('W')) + "%1";
}

void PdfReportTest::keepsToItsMargins()
{
    QFETCH(QString, name);
    const QString pdf = Export(UnitWithRows(120, name).get(), QStringLiteral("margins.pdf"));
    const Layout layout = Read(pdf);
    QVERIFY(layout.pages.size() > 1);
    constexpr double margin = 28; // about a centimetre
    for (const Word& word : layout.words) {
        const QSizeF page = layout.pages.at(word.page - 1);
        const QRectF inside = QRectF(QPointF(), page).adjusted(margin, margin, -margin, -margin);
        QVERIFY2(inside.contains(word.box), qPrintable(word.text));
    }
}

void PdfReportTest::pagesGrowWithTheRows()
{
    const auto pages = [&](int rows) {
        return Read(Export(UnitWithRows(rows, QStringLiteral("row %1")).get(), QStringLiteral("pages.pdf")))
            .pages.size();
    };
    const qsizetype few = pages(200);
    const qsizetype many = pages(800);
    QVERIFY(few >= 2);
    QVERIFY2(many >= 3 * few && many <= 4 * few, qPrintable(QStringLiteral("%1 %2").arg(few).arg(many)));
}

void PdfReportTest::loadsTheLogoAndNothingElse()
{
    // Pictures of sizes that are found again in the list of the PDF's images.
    QImage logo(61, 47, QImage::Format_RGB32);
    logo.fill(Qt::red);
    QVERIFY(logo.save(Path(QStringLiteral("logo.png"))));
    QImage secret(53, 59, QImage::Format_RGB32);
    secret.fill(Qt::blue);
    QVERIFY(secret.save(Path(QStringLiteral("secret.png"))));

    const QString path = Path(QStringLiteral("secret.png"));
    const QString name =
        QStringLiteral("<img src=\"%2\"/><img src=\"file://%2\"/><link rel=\"stylesheet\" href=\"%2\"/>"
                       "<table background=\"%2\" style=\"background-image:url(%2)\"><tr><td>row %1")
            .replace(QLatin1String("%2"), path);
    const auto unit = UnitWithRows(1, name);
    const QString pdf = Export(unit.get(), QStringLiteral("hostile.pdf"), Path(QStringLiteral("logo.png")));
    QVERIFY(!pdf.isEmpty());
    const QByteArray images = Output(QStringLiteral("pdfimages"), {QStringLiteral("-list"), pdf});
    QVERIFY2(QRegularExpression(QStringLiteral(" 61 +47 ")).match(QString::fromUtf8(images)).hasMatch(),
             images);
    QVERIFY2(!QRegularExpression(QStringLiteral(" 53 +59 ")).match(QString::fromUtf8(images)).hasMatch(),
             images);
}

void PdfReportTest::secondReportOfOneBuilder()
{
    CReportBuilderPDF builder;
    CExportDirectorReport director;
    const auto write = [&](UUTTest* test, const QString& name) {
        return builder.OpenFile(Path(name)) && director.ExportUUTTest(test, &builder);
    };
    QVERIFY(write(UnitWithRows(1, QStringLiteral("first%1")).get(), QStringLiteral("1.pdf")));
    QVERIFY(builder.OutputComplete());
    // A walk that breaks off leaves nothing behind in the next document.
    const auto broken = UnitWithRows(1, QStringLiteral("broken%1"));
    broken->AssignResultSet(new TestResultSet(nullptr, nullptr));
    QVERIFY(!write(broken.get(), QStringLiteral("broken.pdf")));
    QVERIFY(!builder.OutputComplete());
    QVERIFY(!QFile::exists(Path(QStringLiteral("broken.pdf"))));

    QVERIFY(write(UnitWithRows(1, QStringLiteral("second%1")).get(), QStringLiteral("2.pdf")));
    QVERIFY(builder.OutputComplete());
    const QByteArray text =
        Output(QStringLiteral("pdftotext"), {Path(QStringLiteral("2.pdf")), QStringLiteral("-")});
    QVERIFY(text.contains("second1"));
    QVERIFY(!text.contains("first1") && !text.contains("broken1"));
}

void PdfReportTest::tellsWhatDidNotReachTheDisk_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::newRow("full disk") << "/dev/full";
    QTest::newRow("a folder") << m_folder.path();
    QTest::newRow("missing folder") << Path(QStringLiteral("missing/report.pdf"));
    QTest::newRow("no name") << QString();
}

void PdfReportTest::tellsWhatDidNotReachTheDisk()
{
    QFETCH(QString, fileName);
    CReportBuilderPDF builder;
    CExportDirectorReport director;
    QVERIFY(builder.OpenFile(fileName));
    QVERIFY(director.ExportUUTTest(SampleModels::BareUnit().get(), &builder));
    QVERIFY(!builder.OutputComplete());
}

QTEST_MAIN(PdfReportTest)
#include "PdfReportTest.moc"
