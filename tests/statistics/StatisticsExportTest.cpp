#include "support/Golden.h"
#include "support/RelaxNg.h"
#include "support/SampleModels.h"
#include "support/SampleProgram.h"

#include "export/Environment.h"
#include "statistics/CStatisticsReportBuilderCSV.h"
#include "statistics/CStatisticsReportBuilderXML.h"

#include <ZYNCommon/StatisticsCollector.h>
#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNPersistence/CExportServiceStatistics.h>

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

using SampleModels::Limits;

Limits MilliVolt()
{
    return SampleModels::RealLimits(MeasurementUnit::Volt, 4.75, 5.25, -3, "<=", "<");
}

StatisticsData* Entry(QSharedPointer<TestComponent> component, const Limits& limits,
                      const QList<std::pair<EN_ZYN_RESULT, QVariant>>& runs)
{
    auto* const data = new StatisticsData(component);
    if (component && component->GetValidationCtrl())
        component->GetValidationCtrl()->SetValidation(limits);
    for (const auto& [result, value] : runs)
        data->AddValue(result, value, limits);
    return data;
}

QSharedPointer<TestMeasurement> Measurement(long id, const QString& name, EN_ZYN_ADDRESS type)
{
    return QSharedPointer<TestMeasurement>::create(id, name, type, nullptr, 0U, -1L);
}

/// Entries of every kind, made by hand: nothing of it depends on how a lot is collected.
std::unique_ptr<StatisticsDataReport> Figures()
{
    auto report = std::make_unique<StatisticsDataReport>();
    report->AddTestData(Entry(Measurement(21, u"Output"_s, ZYN_ADDRESS_REAL), MilliVolt(),
                              {{ZYN_RESULT_PASSED, 4.99},
                               {ZYN_RESULT_PASSED, 5.01},
                               {ZYN_RESULT_FAILED, 5.3},
                               {ZYN_RESULT_ERROR, QVariant()},
                               {ZYN_RESULT_NOT_TESTED, QVariant()}}));
    report->AddTestData(Entry(Measurement(22, u"No; limits <&>"_s, ZYN_ADDRESS_INTEGER), Limits(),
                              {{ZYN_RESULT_DONE, 7}, {ZYN_RESULT_DONE, 9}}));
    report->AddTestData(
        Entry(Measurement(23, u"Text"_s, ZYN_ADDRESS_STRING), Limits(), {{ZYN_RESULT_PASSED, u"ok"_s}}));
    report->AddTestData(Entry(nullptr, MilliVolt(), {{ZYN_RESULT_PASSED, 5.0}}));
    report->AddTestData(new StatisticsData(Measurement(24, u"Never run"_s, ZYN_ADDRESS_REAL)));
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

std::unique_ptr<StatisticsDataReport> MakeReport(const QString& name)
{
    if (name == u"lot")
        return Lot();
    return name == u"empty" ? std::make_unique<StatisticsDataReport>() : Figures();
}

QByteArray Content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

} // namespace

class StatisticsExportTest : public QObject {
    Q_OBJECT

private slots:
    void golden_data();
    void golden();
    void schemaRefusesDamage();
    void formatNames();
    void startFailures();
    void scaledOnlyOnceItWasSet();
    void onlyTheTableAccumulates();
    void nothingForNull();

private:
    QString Path(const char* name) const { return folder.filePath(QLatin1StringView(name)); }
    bool Export(CExportServiceStatistics& service, StatisticsDataReport* report, const QString& fileName);

    QTemporaryDir folder;
};

bool StatisticsExportTest::Export(CExportServiceStatistics& service, StatisticsDataReport* report,
                                  const QString& fileName)
{
    const Environment::Override fixed(SampleModels::ReportTime(), SampleModels::EngineVersion());
    service.SetOutputFileName(fileName);
    return service.Export(report) && service.OutputComplete() && service.GetErrorText().isEmpty();
}

void StatisticsExportTest::golden_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("extension");
    for (const char* const name : {"figures", "figures-scaled", "empty", "lot"}) {
        for (const char* const extension : {"csv", "xml"})
            QTest::addRow("%s as %s", name, extension)
                << QString(QLatin1StringView(name)) << QString(QLatin1StringView(extension));
    }
}

void StatisticsExportTest::golden()
{
    QFETCH(QString, name);
    QFETCH(QString, extension);
    const auto report = MakeReport(name);
    CExportServiceStatistics service;
    QVERIFY(service.SetFormat(extension));
    if (name.endsWith(u"-scaled"))
        service.SetUseScaledData(true);
    const QString fileName = folder.filePath(u"out."_s + extension);
    QVERIFY(Export(service, report.get(), fileName));
    QCOMPARE(Golden::Difference(u"statistics"_s, name + u'.' + extension, Content(fileName)), QString());
    if (extension == u"xml")
        QCOMPARE(RelaxNg::Faults(u"statistics-1.0.2.rng"_s, fileName), QString());
}

void StatisticsExportTest::schemaRefusesDamage()
{
    const auto report = Lot();
    CExportServiceStatistics service;
    QVERIFY(service.SetFormat(QString()));
    QVERIFY(Export(service, report.get(), Path("out.xml")));
    const QByteArray content = Content(Path("out.xml"));
    const std::pair<const char*, const char*> damages[] = {
        {"Version=\"1.0.2\"", "Version=\"1.0.3\""},
        {"<Property Name=\"Pass\"", "<Property Name=\"Fail\""},
        {"<Property Name=\"Unit\">V</Property>", ""},
        {"Type=\"8\"", "Type=\"Real\""}};
    for (const auto& [before, after] : damages) {
        const QByteArray damaged = QByteArray(content).replace(before, after);
        QVERIFY2(damaged != content, before);
        QVERIFY2(RelaxNg::Refuses(u"statistics-1.0.2.rng"_s, damaged, Path("damaged.xml")), before);
    }
}

void StatisticsExportTest::formatNames()
{
    StatisticsDataReport report;
    CExportServiceStatistics service;
    for (const char* format : {"XML", "", "  ", " default", "csv ", "Csv"}) {
        QVERIFY2(service.SetFormat(QString::fromLatin1(format)) && service.FormatOk(), format);
        QVERIFY(Export(service, &report, Path("names")));
        QVERIFY2(
            Content(Path("names")).startsWith(format[0] == 'c' || format[0] == 'C' ? "Ident\n" : "<?xml"),
            format);
    }
    QVERIFY(!service.SetFormat(u"TXT"_s));
    QVERIFY(!service.FormatOk());
    QVERIFY(!Export(service, &report, Path("names")));
    QCOMPARE(service.GetErrorText(), u"No valid format provided."_s);
}

void StatisticsExportTest::startFailures()
{
    CExportServiceStatistics service;
    StatisticsDataReport report;
    QVERIFY(service.SetFormat(u"CSV"_s));
    QVERIFY(!service.Export(&report));
    QCOMPARE(service.GetErrorText(), u"No filename provided."_s);
    const QString missing = Path("missing/%1.csv");
    service.SetOutputFileName(missing);
    QVERIFY(!service.Export(&report));
    QCOMPARE(service.GetErrorText(), u"Could not create file: "_s + missing);
    service.SetOutputFileName(Path("null.csv"));
    QVERIFY(!service.Export(nullptr));
    QVERIFY2(service.GetErrorText().isEmpty(), "the export started");
    QVERIFY(!service.OutputComplete());
    QVERIFY(Export(service, &report, Path("again.csv")));

    QCOMPARE(CExportServiceStatistics::FormatForExtension(u"a.zyr"_s), u"XML"_s);
    QCOMPARE(CExportServiceStatistics::FormatForExtension(u"a.csv.txt"_s), u"CSV"_s);
}

void StatisticsExportTest::scaledOnlyOnceItWasSet()
{
    const auto report = Figures();
    CExportServiceStatistics service;
    for (const bool scaled : {true, false}) {
        service.SetUseScaledData(scaled);
        QVERIFY(service.SetFormat(u"CSV"_s));
        QVERIFY(Export(service, report.get(), Path("a.csv")));
        QVERIFY(Content(Path("a.csv")).contains(scaled ? "\nValue 1;4990;7;ok;" : "\nValue 1;4.99;7;ok;"));
    }
}

void StatisticsExportTest::onlyTheTableAccumulates()
{
    const auto report = Figures();
    CExportServiceStatistics service;
    const auto columns = [&] {
        return Export(service, report.get(), Path("grown")) ? Content(Path("grown")).split('\n')[0].count(';')
                                                            : -1;
    };
    QVERIFY(service.SetFormat(u"CSV"_s));
    QCOMPARE(columns(), 5);
    QCOMPARE(columns(), 10);
    QVERIFY(service.SetFormat(u"CSV"_s));
    QCOMPARE(columns(), 5);
    QVERIFY(service.SetFormat(u"XML"_s));
    QVERIFY(Export(service, report.get(), Path("a.xml")));
    QVERIFY(Export(service, report.get(), Path("b.xml")));
    QCOMPARE(Content(Path("a.xml")), Content(Path("b.xml")));
}

void StatisticsExportTest::nothingForNull()
{
    CStatisticsReportBuilderCSV table;
    CStatisticsReportBuilderXML document;
    for (CExportBuilderImp* const builder : std::initializer_list<CExportBuilderImp*>{&table, &document}) {
        const bool isTable = builder == &table;
        QVERIFY(!builder->Open());
        QBuffer buffer;
        builder->SetDevice(&buffer);
        QVERIFY(builder->Open());
        QVERIFY(!builder->BeginStatisticsData(nullptr));
        // The table does not know of these; the document leaves out what is not there.
        QCOMPARE(builder->BeginSession(nullptr), isTable);
        QCOMPARE(builder->BeginTestProgram(nullptr), isTable);
        QVERIFY(builder->Close() && builder->OutputComplete());
    }
}

QTEST_APPLESS_MAIN(StatisticsExportTest)
#include "StatisticsExportTest.moc"
