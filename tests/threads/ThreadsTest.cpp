#include "support/SampleModels.h"
#include "support/Test.h"
#include "testplan/SamplePlan.h"

#include "export/Environment.h"

#include <ZYNPersistence/BinningReader.h>
#include <ZYNPersistence/CExportServiceReport.h>
#include <ZYNPersistence/CExportServiceStatistics.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>
#include <ZYNPersistence/CImportServiceReport.h>
#include <ZYNPersistence/CReadServiceTestPlan.h>

#include <barrier>
#include <memory>
#include <thread>
#include <vector>

using namespace ZYN;

namespace {

/// What came of each piece of work, by its name: the bytes of a file or a text.
using Results = QMap<QString, QByteArray>;

/// All that the library can do, in a folder of its own, with services and models of its own.
class Work {
public:
    explicit Work(const QString& workFolder)
        : folder(workFolder)
    {
        QDir().mkpath(folder);
    }

    Results Run()
    {
        for (const QString format : {"XML", "TXT", "CSV", "HTML", "PDF", "JSON", "STDF"})
            WriteReports(format);
        WriteStatistics("XML");
        WriteStatistics("CSV");
        WriteAndReadPlan();
        ReadReport("panel.XML");
        Files::Write(Path("broken.zyr"), results.value("panel.XML").first(5000));
        ReadReport("broken.zyr");
        ReadBins();
        return results;
    }

private:
    QString Path(const QString& name) const { return folder + u'/' + name; }

    template <class Service, class Model>
    void Write(Service& service, Model* model, const QString& name)
    {
        service.SetOutputFileName(Path(name));
        const bool good = service.Export(model) && service.OutputComplete();
        results[name] = good ? Files::Content(Path(name)) : "failed: " + service.GetErrorText().toUtf8();
    }

    // The second report of a format goes through a used builder; to an STDF lot file it is a second part.
    void WriteReports(const QString& format)
    {
        CExportServiceReport service;
        service.SetFormat(format);
        Write(service, SampleModels::HostileNames().get(), "names." + format);
        Write(service, SampleModels::Panel().get(), "panel." + format);
        CExportServiceReport second;
        second.SetFormat(format);
        Write(second, SampleModels::Panel().get(), "panel." + format);
    }

    void WriteStatistics(const QString& format)
    {
        StatisticsCollector collector;
        collector.AddUnit(SampleModels::Panel().get());
        const std::unique_ptr<StatisticsDataReport> report = collector.TakeReport();
        CExportServiceStatistics service;
        service.SetFormat(format);
        Write(service, report.get(), "statistics." + format);
    }

    void WriteAndReadPlan()
    {
        const QSharedPointer<TestProgram> program = SamplePlan::Program();
        CExportServiceTestPlan service(false);
        Write(service, program.get(), "plan.tpl");
        QString error;
        const std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(Path("plan.tpl"), &error));
        results["plan as read"] = plan ? SamplePlan::Describe(*plan).toUtf8() : error.toUtf8();
    }

    void ReadReport(const QString& name)
    {
        UUTTest test(0, QString());
        CImportServiceReport service;
        service.SetFormat("XML");
        service.SetInputFileName(Path(name));
        QByteArray& findings = results[name + " findings"];
        findings = service.Import(&test) ? "read\n" : "not read\n";
        for (const ImportFinding& finding : service.GetFindings())
            findings += QString("%1:%2 %3\n")
                            .arg(QString::number(finding.line), QString::number(finding.column), finding.text)
                            .toUtf8();
        CExportServiceReport again;
        again.SetFormat("XML");
        Write(again, &test, name + " as read");
    }

    void ReadBins()
    {
        Files::Write(Path("bins.ini"), "[BIN1]\n_NAME_=Good\n_TYPE_=HARD\n_RESULT_=PASS\n"
                                       "[BIN7]\n_NAME_=Open\n_TYPE_=SOFT\n_RESULT_=FAIL\n");
        QString error;
        const Binning binning = BinningReader::read(Path("bins.ini"), error);
        results["bins as read"] = binning.bins.value(7).name.toUtf8() + error.toUtf8();
    }

    const QString folder;
    Results results;
};

/// Without what a PDF says about the moment of its making.
QByteArray WithoutDates(const QByteArray& pdf)
{
    static const QRegularExpression date("/CreationDate \\([^)]*\\)");
    return QString::fromLatin1(pdf).remove(date).toLatin1();
}

} // namespace

/// Separate services in separate threads, every format at once: what the library promises. Nothing is used
/// before the threads start, so that they meet in whatever is made at its first use. In a build with the
/// thread sanitizer its reports fail this test too.
class ThreadsTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder;

    std::vector<Results> OnThreads(int count, const QString& name) const
    {
        std::vector<Results> results(static_cast<size_t>(count));
        std::barrier start(count);
        std::vector<std::thread> threads;
        for (Results& result : results)
            threads.emplace_back(
                [&, work = Work(folder.filePath(name + QString::number(threads.size())))]() mutable {
                    start.arrive_and_wait();
                    result = work.Run();
                });
        for (std::thread& thread : threads)
            thread.join();
        return results;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(
            QFile::copy(ZYN_SOURCE_DIR "/tests/support/ReportLogo.png", folder.filePath("ReportLogo.png")));
        qputenv("ZYN_MEDIA_DIR", QFile::encodeName(folder.path()));
    }

    void EachWritesTheSame()
    {
        const Environment::Override fixed(SampleModels::ReportTime(), SampleModels::EngineVersion());
        const std::vector<Results> results = OnThreads(8, "together");
        // In a thread as well: in that of the application Qt draws pictures in another way.
        const Results alone = OnThreads(1, "alone").front();
        QCOMPARE(alone.size(), 2 * 7 + 2 + 2 + 2 * 2 + 1);
        for (auto it = alone.cbegin(); it != alone.cend(); ++it) {
            QVERIFY2(!it->isEmpty() && !it->startsWith("failed: "), qPrintable(it.key()));
            for (const Results& result : results)
                QVERIFY2(WithoutDates(result.value(it.key())) == WithoutDates(*it), qPrintable(it.key()));
        }
    }

    void TheClockRuns()
    {
        for (const Results& results : OnThreads(8, "clock"))
            for (auto it = results.cbegin(); it != results.cend(); ++it)
                QVERIFY2(!it->startsWith("failed: "), qPrintable(it.key()));
    }
};

QTEST_MAIN(ThreadsTest)
#include "ThreadsTest.moc"
