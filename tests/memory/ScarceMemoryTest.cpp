#include "ScarceMemory.h"

#include "support/SampleModels.h"
#include "testplan/SamplePlan.h"

#include <ZYNCommon/TestPlan.h>
#include <ZYNPersistence/BinningReader.h>
#include <ZYNPersistence/CExportServiceReport.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>
#include <ZYNPersistence/CImportServiceReport.h>
#include <ZYNPersistence/CReadServiceTestPlan.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <climits>
#include <csignal>
#include <functional>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

enum Answer { Good, Failed, FailedWithoutText };

Answer AnswerOf(bool good, const QString& errorText)
{
    if (good)
        return Good;
    return errorText.isEmpty() ? FailedWithoutText : Failed;
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
    static const QString texts[] = {u"good"_s, u"failed"_s, u"failed without text"_s, {}, u"exception"_s};
    return WIFEXITED(status) ? texts[WEXITSTATUS(status)] : u"signal %1"_s.arg(WTERMSIG(status));
}

} // namespace

/// What runs out of memory says so. Each operation is repeated in processes of their own, in which one
/// allocation after another fails, alone and with all that follow it.
class ScarceMemoryTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void sweep_data();
    void sweep();

private:
    QString Path(const QString& name) const { return folder.filePath(name); }
    Answer Read(const QString& what);
    Answer Write(const QString& format);

    QTemporaryDir folder;
    QString source; // what the operations need is made before memory runs out
    QSharedPointer<UUTTest> unit = SampleModels::Panel();
    std::unique_ptr<UUTTest> imported;
    std::unique_ptr<CImportServiceReport> import;
    std::unique_ptr<CExportServiceReport> service;
};

void ScarceMemoryTest::initTestCase()
{
    CExportServiceReport report;
    report.SetFormat(u"XML"_s);
    report.SetOutputFileName(Path(u"report"_s));
    QVERIFY(report.Export(unit.get()) && report.OutputComplete());
    CExportServiceTestPlan plan(false);
    plan.SetOutputFileName(Path(u"plan"_s));
    QVERIFY(plan.Export(SamplePlan::Program().get()) && plan.OutputComplete());
    QFile bins(Path(u"bins"_s));
    QVERIFY(bins.open(QIODevice::WriteOnly));
    for (int bin = 1; bin < 100; ++bin)
        bins.write(QByteArray("[BIN%1]\n_NAME_=b%1\n_TYPE_=SOFT\n_RESULT_=FAIL\n")
                       .replace("%1", QByteArray::number(bin)));
}

Answer ScarceMemoryTest::Read(const QString& what)
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
    const bool good = BinningReader::read(source, error).valid;
    return AnswerOf(good, error);
}

Answer ScarceMemoryTest::Write(const QString& format)
{
    const bool good = service->SetFormat(format) && service->Export(unit.get()) && service->OutputComplete();
    return AnswerOf(good, u"asked with OutputComplete"_s);
}

void ScarceMemoryTest::sweep_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<bool>("isReader");
    for (const char* const reader : {"report", "plan", "bins"})
        QTest::newRow(reader) << QString::fromLatin1(reader) << true;
    // The other formats lean on Qt's text stream, which ends the process when it finds no memory at its end.
    for (const char* const format : {"XML", "JSON", "STDF"})
        QTest::newRow(format) << QString::fromLatin1(format) << false;
}

void ScarceMemoryTest::sweep()
{
    QFETCH(QString, what);
    QFETCH(bool, isReader);
    const auto prepare = [&] {
        source = Path(what);
        imported = std::make_unique<UUTTest>(0, QString());
        import = std::make_unique<CImportServiceReport>();
        import->SetFormat(u"XML"_s);
        import->SetInputFileName(Path(u"report"_s));
        service = std::make_unique<CExportServiceReport>();
        service->SetOutputFileName(Path(u"out."_s + what));
        QFile::remove(Path(u"out."_s + what));
    };
    const auto work = [&] { return isReader ? Read(what) : Write(what); };
    prepare();
    QCOMPARE(work(), Good); // whatever is made once is made now
    prepare();
    ScarceMemory::Start(LONG_MAX, ScarceMemory::Once);
    const Answer answer = work();
    const long allocations = ScarceMemory::Stop();
    QCOMPARE(answer, Good);
    QVERIFY(allocations > 50);

    int failures = 0;
    for (const auto refusal : {ScarceMemory::Once, ScarceMemory::ForGood})
        for (long good = 0; good < allocations; good += 1 + allocations / 60) {
            prepare();
            const QString said = Answered(work, good, refusal);
            QVERIFY2(said == u"good" || said == u"failed",
                     qPrintable(u"%1 after %2 of %3"_s.arg(said, QString::number(good),
                                                           QString::number(allocations))));
            failures += said == u"failed";
        }
    QVERIFY(failures > 50);
}

QTEST_GUILESS_MAIN(ScarceMemoryTest)
#include "ScarceMemoryTest.moc"
