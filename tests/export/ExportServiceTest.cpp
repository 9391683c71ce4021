#include "support/SampleModels.h"
#include "support/Test.h"

#include "export/CExportServicePrivate.h"
#include "report/CReportBuilderStream.h"

#include <ZYNPersistence/CExportServiceReport.h>
#include <ZYNPersistence/CExportServiceStatistics.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>

#include <ZYNCommon/UUTTest.h>

#include <new>
#include <stdexcept>

using namespace ZYN;

namespace {

IExportBuilder* EmptyDocument()
{
    return new CReportBuilderStream;
}

} // namespace

class ExportServiceTest : public QObject {
    Q_OBJECT

private slots:
    void Names_data()
    {
        const Rows<QString, bool> row;
        for (const char* name : {"XML", "DEFAULT", "xml", " \n"})
            row(name, "zyr", true);
        for (const char* name : {"TXT", "ASCII", "TEXT", " text\t"})
            row(name, "txt", true);
        for (const char* name : {"CSV", "HTML", "PDF", "JSON", "STD", "STDF"})
            row(name, QString(name).toLower(), true);
        row("StDf", "stdf", true);
        // The empty name chooses a format without being a valid name.
        row("", "zyr", false);
        // Inner blanks matter; extensions and beginnings of names are no names.
        for (const char* name : {"X ML", ".csv", "HTM", "STDFX"})
            row(name, "", false);
    }
    void Names()
    {
        const auto [extension, valid] = CurrentRow<QString, bool>();
        const QString name = QTest::currentDataTag();
        QCOMPARE(CExportServiceReport::ExtensionForFormat(name), extension);
        QCOMPARE(CExportServiceReport::ValidFormat(name), valid);
    }

    void FileNames_data()
    {
        const Rows<QString> row;
        row("report.zyr", "XML");
        row("report.std", "STD");
        row("report.stdf", "STD");
        // Anywhere in the whole name, folders included, and nothing else than this case.
        row("/lot.json/report", "JSON");
        row("report.htmlx", "HTML");
        for (const char* name : {"report.CSV", "csv", ""})
            row(name, "");
        // Each extension wins against all that are searched for later.
        row("a.stdf.json.html.pdf.zyr.xml.txt.csv", "CSV");
        row("a.stdf.json.html.pdf.zyr.xml.txt", "TXT");
        row("a.stdf.json.html.pdf.zyr", "XML");
        row("a.stdf.json.html.pdf", "PDF");
        row("a.stdf.json.html", "HTML");
        row("a.stdf.json", "JSON");
    }
    void FileNames()
    {
        const auto [format] = CurrentRow<QString>();
        QCOMPARE(CExportServiceReport::FormatForExtension(QTest::currentDataTag()), format);
    }

    void StartFailures()
    {
        CExportServiceReport report;
        CExportServiceStatistics statistics;
        CExportServiceTestPlan plan(false);
        const auto failure = [&](auto& service, auto* model, const QString& fileName) {
            service.SetOutputFileName(fileName);
            return service.Export(model) || service.OutputComplete() ? "exported" : service.GetErrorText();
        };
        const auto verifyFailures = [&](auto& service, auto* model) {
            QCOMPARE(failure(service, model, ""), "No filename provided.");
            const QString missing = Path("100%1 %2/report");
            QCOMPARE(failure(service, model, missing), "Could not create file: " + missing);
            QCOMPARE(failure(service, model, Path("null")), ""); // the export started
        };
        QVERIFY(!report.SetFormat("none") && !statistics.SetFormat("none"));
        QCOMPARE(failure(report, static_cast<UUTTest*>(nullptr), Path("x")), "No valid format provided.");
        QVERIFY(report.SetFormat("XML") && statistics.SetFormat("CSV"));
        verifyFailures(report, static_cast<UUTTest*>(nullptr));
        verifyFailures(statistics, static_cast<StatisticsDataReport*>(nullptr));
        verifyFailures(plan, static_cast<TestProgram*>(nullptr));
    }

    void DefaultLogo_data()
    {
        const Rows<QStringList, QString> row;
        row("no folder", QStringList(), QString());
        row("png", QStringList("ReportLogo.png"), "ReportLogo.png");
        row("the JPEG of both", QStringList{"ReportLogo.png", "ReportLogo.jpg"}, "ReportLogo.jpg");
    }
    void DefaultLogo()
    {
        const auto [files, logo] = CurrentRow<QStringList, QString>();
        const QString media = QString("media of ") + QTest::currentDataTag();
        for (const QString& name : files) {
            QDir(folder.path()).mkdir(media);
            Files::Write(Path(media + '/' + name), "picture");
        }
        qputenv("ZYN_MEDIA_DIR", Path(media).toLocal8Bit());
        CExportServiceReport service;
        qunsetenv("ZYN_MEDIA_DIR");

        // The report names the logo as it is found from the report's folder.
        const QByteArray report = ExportedText(service, "HTML");
        QCOMPARE(report.contains("<img"), !logo.isEmpty());
        if (!logo.isEmpty())
            QVERIFY(report.contains(("src=\"" + media + '/' + logo + '"').toUtf8()));
    }

    void SettingsStayUntilTheNextFormat()
    {
        CExportServiceReport service;
        service.SetReportLogoImage(Path("first.png"));
        QVERIFY(ExportedText(service, "HTML").contains("\"first.png\""));
        service.SetReportLogoImage(QFileInfo(folder.path()).path() + "/second.png");
        QVERIFY(ExportedText(service, {}).contains("\"first.png\""));
        QVERIFY(ExportedText(service, "HTML").contains("\"../second.png\""));

        QVERIFY(!ExportedText(service, "XML").contains("xml-stylesheet"));
        service.SetXMLStyle(Path("style.xsl"));
        QVERIFY(ExportedText(service, {}).contains("style.xsl"));
    }

    // Formats that are not for people to choose (native files, lots) are not offered.
    void DialogsOfferReports()
    {
        QCOMPARE(CExportServiceReport::FileNameFilter(),
                 QStringLiteral("XML File (*.xml);;PDF File (*.pdf);;HTML File (*.html);;CSV File (*.csv);;"
                                "Text File (*.txt);;JSON File (*.json)"));
    }

    void OutputCompleteFollowsTheLastRun()
    {
        CExportServicePrivate service;
        QVERIFY(service.SetBuilder(EmptyDocument));
        QVERIFY(!service.Run([] { return true; }));
        QVERIFY(!service.errorText.isEmpty());
        const auto document = [&] { return service.builder->Open() && service.builder->Close(); };
        service.fileName = Path("document");

        QVERIFY(service.Run(document));
        QCOMPARE(service.errorText, QString());
        // It tells about the last export, whatever is chosen for the next one.
        QVERIFY(service.SetBuilder(EmptyDocument));
        QVERIFY(service.OutputComplete());

        QVERIFY(!service.Run([&] { return service.builder->Open() && false; }));
        QVERIFY(!service.OutputComplete());
        QVERIFY(service.Run(document));
        QVERIFY(service.OutputComplete());
    }

    void OutputErrorIsWhatTheDeviceSays_data()
    {
        const Rows<> row;
        for (const char* format : {"XML", "CSV", "TXT", "HTML", "JSON"})
            row(format);
    }
    void OutputErrorIsWhatTheDeviceSays()
    {
        CExportServiceReport service;
        service.SetFormat(QTest::currentDataTag());
        const auto unit = SampleModels::UnitWithRows(1, "Row %1");
        for (const auto& [fileName, says] :
             {std::pair(QString("/dev/full"), "No space left on device"), {Path("good"), ""}}) {
            service.SetOutputFileName(fileName);
            QVERIFY(service.Export(unit.get()));
            QCOMPARE(service.GetErrorText() + service.GetOutputError(), QString(says));
        }
    }

    void ExceptionsStayInside()
    {
        CExportServicePrivate service;
        QVERIFY(service.SetBuilder(EmptyDocument));
        service.fileName = Path("broken");

        QVERIFY(!service.Run([]() -> bool { throw std::bad_alloc(); }));
        QCOMPARE(service.errorText, "Not enough memory for the export.");
        QVERIFY(!service.OutputComplete());

        QVERIFY(!service.Run([&]() -> bool {
            service.builder->Open();
            service.builder->Close();
            throw std::runtime_error("site model");
        }));
        QCOMPARE(service.errorText, "The export failed inside the test data.");
        QVERIFY(!service.OutputComplete());
        QVERIFY(!service.SetBuilder([]() -> IExportBuilder* { throw std::bad_alloc(); }));
        QVERIFY(!service.builder);
    }

private:
    /// Exports a bare unit, with a fresh builder unless the format is null.
    QByteArray ExportedText(CExportServiceReport& service, const QString& format) const
    {
        UUTTest test(1, "unit");
        service.SetOutputFileName(Path("report"));
        if (!format.isNull())
            service.SetFormat(format);
        return service.Export(&test) && service.OutputComplete() ? Files::Content(Path("report"))
                                                                 : "no report";
    }
    QString Path(const QString& name) const { return folder.filePath(name); }
    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(ExportServiceTest)
#include "ExportServiceTest.moc"
