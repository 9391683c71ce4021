#include "support/Golden.h"
#include "support/RelaxNg.h"
#include "support/SampleModels.h"

#include "export/Environment.h"
#include "statistics/CStatisticsReportBuilderCSV.h"
#include "statistics/CStatisticsReportBuilderXML.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/StatisticsCollector.h>
#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNPersistence/CExportServiceStatistics.h>

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

using Limits = QSharedPointer<ValidationInterface>;

Limits MilliVolt()
{
    return Limits(TestComponentFactory::CreateValidationReal(MeasurementUnit::Volt, "<=", "<", 4.75, 5.25, -1,
                                                             -1, -1, -1, -1, -1, QVariant(-3), qQNaN()));
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
    void schemaRefusesDamage_data();
    void schemaRefusesDamage();
    void formatNames_data();
    void formatNames();
    void startFailures();
    void scaledOnlyOnceItWasSet();
    void tableAccumulates();
    void documentDoesNotAccumulate();
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

void StatisticsExportTest::schemaRefusesDamage_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const QByteArray& before, const QByteArray& after) {
        QTest::newRow(name) << before << after;
    };
    row("version", "Version=\"1.0.2\"", "Version=\"1.0.3\"");
    row("order", "<Property Name=\"Pass\"", "<Property Name=\"Fail\"");
    row("count", "<Property Name=\"Fail\">0<", "<Property Name=\"Fail\">-1<");
    row("detail missing", "<Property Name=\"Unit\">V</Property>", "");
    row("type", "Type=\"8\"", "Type=\"Real\"");
    row("element", "TestData", "TestDatum");
    row("session", "KVAVersion", "Version");
}

void StatisticsExportTest::schemaRefusesDamage()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const auto report = Lot();
    CExportServiceStatistics service;
    QVERIFY(service.SetFormat(QString()));
    QVERIFY(Export(service, report.get(), Path("out.xml")));
    QByteArray content = Content(Path("out.xml"));
    QVERIFY(content.contains(before));
    content.replace(before, after);
    QVERIFY(RelaxNg::Refuses(u"statistics-1.0.2.rng"_s, content, Path("damaged.xml")));
}

void StatisticsExportTest::formatNames_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("begin");
    const QByteArray xml("<?xml");
    const QByteArray csv("Ident\n");
    QTest::newRow("XML") << u"XML"_s << xml;
    QTest::newRow("empty") << QString() << xml;
    QTest::newRow("blanks") << u"  "_s << xml;
    QTest::newRow("default") << u" default"_s << xml;
    QTest::newRow("csv") << u"csv "_s << csv;
    QTest::newRow("Csv") << u"Csv"_s << csv;
    QTest::newRow("TXT") << u"TXT"_s << QByteArray();
    QTest::newRow("HTML") << u"HTML"_s << QByteArray();
}

void StatisticsExportTest::formatNames()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, begin);
    CExportServiceStatistics service;
    QVERIFY(service.SetFormat(u"CSV"_s));
    QCOMPARE(service.SetFormat(format), !begin.isEmpty());
    QCOMPARE(service.FormatOk(), !begin.isEmpty());
    StatisticsDataReport report;
    QCOMPARE(Export(service, &report, Path("names")), !begin.isEmpty());
    if (begin.isEmpty())
        QCOMPARE(service.GetErrorText(), u"No valid format provided."_s);
    else
        QVERIFY(Content(Path("names")).startsWith(begin));
}

void StatisticsExportTest::startFailures()
{
    CExportServiceStatistics service;
    StatisticsDataReport report;
    QVERIFY(!service.FormatOk());
    QVERIFY(!service.Export(&report));
    QCOMPARE(service.GetErrorText(), u"No valid format provided."_s);
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

    QCOMPARE(CExportServiceStatistics::FileNameFilter(), u"CSV File (*.csv);;XML File (*.xml)"_s);
    QCOMPARE(CExportServiceStatistics::FormatForExtension(u"a.zyr"_s), u"XML"_s);
    QCOMPARE(CExportServiceStatistics::FormatForExtension(u"a.csv.txt"_s), u"CSV"_s);
}

void StatisticsExportTest::scaledOnlyOnceItWasSet()
{
    const auto report = Figures();
    CExportServiceStatistics service;
    service.SetUseScaledData(true);
    QVERIFY(service.SetFormat(u"CSV"_s));
    QVERIFY(Export(service, report.get(), Path("a.csv")));
    QVERIFY(Content(Path("a.csv")).contains("\nValue 1;4990;7;ok;"));
    service.SetUseScaledData(false);
    QVERIFY(service.SetFormat(u"CSV"_s));
    QVERIFY(Export(service, report.get(), Path("a.csv")));
    QVERIFY(Content(Path("a.csv")).contains("\nValue 1;4.99;7;ok;"));
}

void StatisticsExportTest::tableAccumulates()
{
    const auto first = Figures();
    const auto second = Figures();
    CExportServiceStatistics service;
    QVERIFY(service.SetFormat(u"CSV"_s));
    const auto columns = [&](const std::unique_ptr<StatisticsDataReport>& report) {
        return Export(service, report.get(), Path("grown.csv"))
                   ? Content(Path("grown.csv")).split('\n').constFirst().count(';')
                   : -1;
    };
    QCOMPARE(columns(first), 5);
    QCOMPARE(columns(second), 10);
    QVERIFY(service.SetFormat(u"CSV"_s));
    QCOMPARE(columns(second), 5);
}

void StatisticsExportTest::documentDoesNotAccumulate()
{
    const auto report = Figures();
    CExportServiceStatistics service;
    QVERIFY(service.SetFormat(u"XML"_s));
    QVERIFY(Export(service, report.get(), Path("a.xml")));
    QVERIFY(Export(service, report.get(), Path("b.xml")));
    QCOMPARE(Content(Path("a.xml")), Content(Path("b.xml")));
}

void StatisticsExportTest::nothingForNull()
{
    CStatisticsReportBuilderCSV table;
    CStatisticsReportBuilderXML document;
    QVERIFY(!table.Open() && !document.Open());
    for (CExportBuilderImp* const builder : std::initializer_list<CExportBuilderImp*>{&table, &document}) {
        const bool isTable = builder == &table;
        QBuffer buffer;
        builder->SetDevice(&buffer);
        QVERIFY(builder->Open());
        QVERIFY(!builder->BeginStatisticsData(nullptr));
        // The table does not know of these; the document leaves out what is not there.
        QCOMPARE(builder->BeginSession(nullptr), isTable);
        QCOMPARE(builder->BeginProductType(nullptr), isTable);
        QCOMPARE(builder->BeginUnitUnderTest(nullptr), isTable);
        QCOMPARE(builder->BeginTestProgram(nullptr), isTable);
        QVERIFY(builder->Close());
        QVERIFY(!buffer.isOpen());
        QVERIFY(!builder->IsOpened() && builder->OutputComplete());
    }
}

QTEST_APPLESS_MAIN(StatisticsExportTest)
#include "StatisticsExportTest.moc"
