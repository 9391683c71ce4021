#include "support/ReportRun.h"
#include "support/Test.h"

using namespace ZYN;

namespace {

/// The elements of a page after its scripts ran, as a headless Chromium has them.
QByteArray Opened(const QString& fileName)
{
    // A profile of its own: a running or crashed browser of the same user does not matter.
    const QTemporaryDir profile;
    QStringList arguments = QString("--headless --no-sandbox --disable-gpu --no-first-run --disable-sync "
                                    "--disable-background-networking --disable-quic "
                                    "--disable-component-update --dump-dom")
                                .split(' ');
    arguments << "--user-data-dir=" + profile.path()
              << QUrl::fromLocalFile(fileName).toString(QUrl::FullyEncoded);
    auto browser = Program::Run("chromium", arguments);
    // Its first start on a loaded machine may fail without any fault of the page.
    if (browser.code != 0)
        browser = Program::Run("chromium", arguments);
    return browser.output;
}

QStringList Texts(const QJsonValue& array)
{
    return QVariant(array.toArray().toVariantList()).toStringList();
}

} // namespace

/// HTML reports in a real browser: what it makes of the tags.
class HtmlBrowserTest : public QObject {
    Q_OBJECT

private:
    /// Exports a sample, opens a copy with the script appended and reads what the script found.
    static QJsonObject Findings(const QString& caseName)
    {
        const QTemporaryDir folder;
        const ReportRun run = ExportSample("HTML", *SampleModels::MakeReportCase(caseName), folder.path());
        const QByteArray script = Files::Content(ZYN_SOURCE_DIR "/tests/report/page_findings.js");
        const QByteArray dom = Opened(
            Files::Write(folder.filePath("probed.html"), run.content + "<script>" + script + "</script>"));
        const QByteArray mark = "data-findings=\"";
        const qsizetype start = dom.indexOf(mark) + mark.size();
        const QByteArray encoded = dom.mid(start, dom.indexOf('"', start) - start);
        return QJsonDocument::fromJson(QByteArray::fromPercentEncoding(encoded)).object();
    }

private Q_SLOTS:
    void PanelTables()
    {
        const QJsonObject findings = Findings("panel");
        QVERIFY(findings["rightAligned"].toBool());
        // Each table as its class and then, row by row, class and number of cells.
        const QString head = " | th 8 | tg 8";
        // A panel item's program overview goes on in the item's own table.
        const QString item =
            "overview | overview 2 | overview 4 | overview 4 | overview 2 | overview 4 | overview 4";
        const QString itemResults = head + " | ts 8 | tm 8 | tm 8 | empty 1";
        QStringList tables;
        for (const QJsonValue& table : findings["tables"].toArray())
            tables.append(Texts(table).join(" | "));
        QCOMPARE(tables,
                 QStringList({"overview | overview 2 | overview 4 | overview 4 | overview 4 | overview 4 "
                              "| overview 4 | overview 6 | overview 4 | overview 4",
                              "overview | overview 2 | overview 4 | overview 4",
                              // The step without cells is stood for by its measurement 0.
                              head + " | ts 0 | ts 8 | empty 1", item, itemResults, item, itemResults, item,
                              itemResults}));
        const QString program = "Program: Results:";
        QCOMPARE(Texts(findings["headlines"]).join(' '), program + " Panel Item 1 " + program +
                                                             " Panel Item 2 " + program + " Panel Item 3 " +
                                                             program);
    }

    void OnlyFailuresAreRed_data()
    {
        const Rows<int> row;
        row("passed-unit", 0);
        // The panel's own verdict; unit, program, group, step and measurement of two items.
        row("panel", 11);
    }
    void OnlyFailuresAreRed()
    {
        const auto [failures] = CurrentRow<int>();
        const QJsonArray verdicts = Findings(QTest::currentDataTag())["verdicts"].toArray();
        QVERIFY(!verdicts.isEmpty());
        int red = 0;
        for (const QJsonValue& verdict : verdicts) {
            const bool failed = verdict[0].toString() == "FAIL";
            QCOMPARE(verdict[2].toString() == "rgb(255, 102, 102)", failed);
            QCOMPARE(QStringList({"FAIL", "ABORTED"}).contains(verdict[1].toString()), failed);
            red += failed;
        }
        QCOMPARE(red, failures);
    }

    void LogoLiesBesideThePage()
    {
        const QJsonArray images = Findings("panel-logo")["images"].toArray();
        QCOMPARE(images.size(), 1);
        QCOMPARE(images[0].toArray(), QJsonArray({"media/ReportLogo.png", true, 120}));
    }

    void HostileNamesDoNotNestTables()
    {
        const QJsonObject findings = Findings("hostile-names");
        QCOMPARE(findings["charset"].toString(), QString("UTF-8"));
        QCOMPARE(findings["nestedTables"].toInt(-1), 0);
        QCOMPARE(findings["tables"].toArray().size(), 3);
    }
};

QTEST_GUILESS_MAIN(HtmlBrowserTest)
#include "HtmlBrowserTest.moc"
