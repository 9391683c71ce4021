#include "ScarceMemory.h"
#include "support/Test.h"

#include "support/SampleModels.h"
#include "testplan/SamplePlan.h"

#include <ZYNPersistence/BinningReader.h>
#include <ZYNPersistence/CExportServiceReport.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>
#include <ZYNPersistence/CImportServiceReport.h>
#include <ZYNPersistence/CReadServiceTestPlan.h>

#include <climits>
#include <csignal>
#include <functional>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

using namespace ZYN;

namespace {

enum Answer { Good, Failed, FailedWithoutText };

Answer AnswerOf(bool good, const QString& errorText)
{
    return good ? Good : errorText.isEmpty() ? FailedWithoutText : Failed;
}

/// An operation while memory runs out, in a process of its own.
/// \return what it answers; "exception" and "signal N" are no answers
QString Answered(const std::function<Answer()>& work, long good, ScarceMemory::Refusal refusal)
{
    const pid_t child = fork();
    if (child == 0) {
        for (const int signal : {SIGABRT, SIGSEGV})
            std::signal(signal, SIG_DFL);
        alarm(60);
        int code = 4;
        try {
            ScarceMemory::Start(good, refusal);
            code = work();
        } catch (...) {
        }
        ScarceMemory::Stop();
        _exit(code);
    }
    int status = 0;
    waitpid(child, &status, 0);
    static const QString texts[] = {"good", "failed", "failed without text", {}, "exception"};
    return WIFEXITED(status) ? texts[WEXITSTATUS(status)] : QString("signal %1").arg(WTERMSIG(status));
}

} // namespace

/// What runs out of memory says so. Each operation is repeated in processes of their own, in which one
/// allocation after another fails, alone and with all that follow it.
class ScarceMemoryTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder;
    QString source; // what the operations need is made before memory runs out
    QSharedPointer<UUTTest> unit = SampleModels::Panel();
    std::unique_ptr<UUTTest> imported;
    std::unique_ptr<CImportServiceReport> import;
    std::unique_ptr<CExportServiceReport> service;

    QString Path(const QString& name) const { return folder.filePath(name); }

    void Prepare(const QString& what)
    {
        source = Path(what);
        imported = std::make_unique<UUTTest>(0, QString());
        import = std::make_unique<CImportServiceReport>();
        import->SetInputFileName(Path("report"));
        service = std::make_unique<CExportServiceReport>();
        service->SetOutputFileName(Path("out." + what));
        QFile::remove(Path("out." + what));
    }

    Answer Do(const QString& what)
    {
        QString error;
        if (what == u"report") {
            const bool good = import->Import(imported.get());
            return AnswerOf(good, import->GetErrorText());
        }
        if (what == u"plan") {
            const std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(source, &error));
            return AnswerOf(plan != nullptr, error);
        }
        if (what == u"bins") {
            const bool good = BinningReader::read(source, error).valid;
            return AnswerOf(good, error);
        }
        return service->SetFormat(what) && service->Export(unit.get()) && service->OutputComplete() ? Good
                                                                                                    : Failed;
    }

private slots:
    void initTestCase()
    {
        CExportServiceReport report;
        report.SetFormat("XML");
        report.SetOutputFileName(Path("report"));
        QVERIFY(report.Export(unit.get()) && report.OutputComplete());
        CExportServiceTestPlan plan(false);
        plan.SetOutputFileName(Path("plan"));
        QVERIFY(plan.Export(SamplePlan::Program().get()) && plan.OutputComplete());
        QByteArray bins;
        for (int bin = 1; bin < 100; ++bin)
            bins += QByteArray("[BIN%1]\n_NAME_=b%1\n_TYPE_=SOFT\n_RESULT_=FAIL\n")
                        .replace("%1", QByteArray::number(bin));
        Files::Write(Path("bins"), bins);
    }

    void Sweep_data()
    {
        const Rows<> row;
        // The other formats lean on Qt's text stream, which ends the process when it finds no memory at its
        // end.
        for (const char* const what : {"report", "plan", "bins", "XML", "JSON", "STDF"})
            row(what);
    }
    void Sweep()
    {
        const QString what = QTest::currentDataTag();
        Prepare(what);
        QCOMPARE(Do(what), Good); // whatever is made once is made now
        Prepare(what);
        ScarceMemory::Start(LONG_MAX, ScarceMemory::Once);
        const Answer answer = Do(what);
        const long allocations = ScarceMemory::Stop();
        QCOMPARE(answer, Good);
        QVERIFY(allocations > 50);

        int failures = 0;
        int ended = 0;
        for (const auto refusal : {ScarceMemory::Once, ScarceMemory::ForGood})
            for (long good = 0; good < allocations; good += 1 + allocations / 60) {
                Prepare(what);
                const QString said = Answered([&] { return Do(what); }, good, refusal);
                // The table of a result set is Qt's, which ends the process where it cannot grow.
                if (what == "report" && said == "signal 6" && ++ended <= 2)
                    continue;
                QVERIFY2(said == "good" || said == "failed",
                         qPrintable(QString("%1 after %2 of %3").arg(said).arg(good).arg(allocations)));
                failures += said == "failed";
            }
        QVERIFY(failures > 50);
    }
};

QTEST_GUILESS_MAIN(ScarceMemoryTest)
#include "ScarceMemoryTest.moc"
