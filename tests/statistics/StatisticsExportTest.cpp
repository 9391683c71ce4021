#include "support/Golden.h"
#include "support/RelaxNg.h"
#include "support/SampleModels.h"
#include "support/SampleProgram.h"
#include "support/Test.h"

#include "export/Environment.h"

#include <ZYNPersistence/CExportServiceStatistics.h>

using namespace ZYN;

namespace {

using SampleModels::Limits;

/// Entries of every kind, made by hand: nothing of it depends on how a lot is collected.
std::unique_ptr<StatisticsDataReport> Figures()
{
    SampleModels::ProgramWriter writer(1, "P");
    writer.Group(1, "G");
    writer.Step(1, "S");
    auto report = std::make_unique<StatisticsDataReport>();
    const auto add = [&](const QSharedPointer<TestMeasurement>& measurement, const Limits& limits,
                         const QList<std::pair<EN_ZYN_RESULT, QVariant>>& runs) {
        auto* const data = new StatisticsData(measurement);
        for (const auto& [result, value] : runs)
            data->AddValue(result, value, limits);
        report->AddTestData(data);
    };
    const Limits milliVolt = SampleModels::RealLimits(MeasurementUnit::Volt, 4.75, 5.25, -3, "<=", "<");
    add(writer.Measurement(21, "Output", ZYN_ADDRESS_REAL, milliVolt), milliVolt,
        {{ZYN_RESULT_PASSED, 4.99},
         {ZYN_RESULT_PASSED, 5.01},
         {ZYN_RESULT_FAILED, 5.3},
         {ZYN_RESULT_ERROR, QVariant()},
         {ZYN_RESULT_NOT_TESTED, QVariant()}});
    add(writer.Measurement(22, "No; limits <&>", ZYN_ADDRESS_INTEGER), {},
        {{ZYN_RESULT_DONE, 7}, {ZYN_RESULT_DONE, 9}});
    add(writer.Measurement(23, "Text", ZYN_ADDRESS_STRING), {}, {{ZYN_RESULT_PASSED, "ok"}});
    add(nullptr, milliVolt, {{ZYN_RESULT_PASSED, 5.0}});
    add(writer.Measurement(24, "Never run", ZYN_ADDRESS_REAL), {}, {});
    return report;
}

/// What a collector makes of three units and a panel.
std::unique_ptr<StatisticsDataReport> Lot()
{
    StatisticsCollector collector;
    for (const auto& unit : {SampleModels::PassedUnit(), SampleModels::FailedUnit(), SampleModels::Panel(),
                             SampleModels::HostileNames()})
        collector.AddUnit(unit.get());
    return collector.TakeReport();
}

} // namespace

class StatisticsExportTest : public QObject {
    Q_OBJECT

private slots:
    void Golden_data()
    {
        const Rows<> row;
        for (const char* name : {"figures", "figures-scaled", "empty", "lot"})
            row(name);
    }
    void Golden()
    {
        const QString name = QTest::currentDataTag();
        for (const QString extension : {"csv", "xml"}) {
            const auto report = name == "lot"     ? Lot()
                                : name == "empty" ? std::make_unique<StatisticsDataReport>()
                                                  : Figures();
            CExportServiceStatistics service;
            QVERIFY(service.SetFormat(extension));
            if (name.endsWith("-scaled"))
                service.SetUseScaledData(true);
            const QString fileName = folder.filePath("out." + extension);
            QVERIFY(Export(service, report.get(), fileName));
            QCOMPARE(Golden::Difference("statistics", name + '.' + extension, Files::Content(fileName)),
                     QString());
            if (extension == "xml")
                QCOMPARE(RelaxNg::Faults("statistics-1.0.2.rng", fileName), QString());
        }
    }

    void FormatNames()
    {
        StatisticsDataReport report;
        CExportServiceStatistics service;
        for (const QString format : {"XML", "", "  ", " default", "csv ", "Csv"}) {
            QVERIFY2(service.SetFormat(format) && service.FormatOk(), qPrintable(format));
            QVERIFY(Export(service, &report, Path("names")));
            const char* const begin = format.startsWith('c', Qt::CaseInsensitive) ? "Ident\n" : "<?xml";
            QVERIFY2(Files::Content(Path("names")).startsWith(begin), qPrintable(format));
        }
        QCOMPARE(CExportServiceStatistics::FormatForExtension("a.zyr"), "XML");
        QCOMPARE(CExportServiceStatistics::FormatForExtension("a.csv.txt"), "CSV");
        QVERIFY(!service.SetFormat("TXT"));
        QVERIFY(!service.FormatOk());
        QVERIFY(!Export(service, &report, Path("names")));
        QCOMPARE(service.GetErrorText(), QString("No valid format provided."));
    }

    void OnlyTheTableAccumulates()
    {
        const auto report = Figures();
        CExportServiceStatistics service;
        const auto columns = [&] {
            return Export(service, report.get(), Path("grown"))
                       ? Files::Content(Path("grown")).split('\n')[0].count(';')
                       : -1;
        };
        QVERIFY(service.SetFormat("CSV"));
        QCOMPARE(columns(), 5);
        QCOMPARE(columns(), 10);
        QVERIFY(service.SetFormat("CSV"));
        QCOMPARE(columns(), 5);
        QVERIFY(service.SetFormat("XML"));
        QVERIFY(Export(service, report.get(), Path("a.xml")));
        QVERIFY(Export(service, report.get(), Path("b.xml")));
        QCOMPARE(Files::Content(Path("a.xml")), Files::Content(Path("b.xml")));
    }

private:
    QString Path(const char* name) const { return folder.filePath(QLatin1StringView(name)); }

    bool Export(CExportServiceStatistics& service, StatisticsDataReport* report, const QString& fileName)
    {
        const Environment::Override fixed(SampleModels::ReportTime(), SampleModels::EngineVersion());
        service.SetOutputFileName(fileName);
        return service.Export(report) && service.OutputComplete() && service.GetErrorText().isEmpty();
    }

    QTemporaryDir folder;
};

QTEST_APPLESS_MAIN(StatisticsExportTest)
#include "StatisticsExportTest.moc"
