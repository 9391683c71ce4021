#include "FaultDevices.h"

#include "support/SampleModels.h"

#include "export/CExportDirectorReport.h"
#include "export/CExportDirectorTestPlan.h"
#include "export/Environment.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"
#include "export/IOutputState.h"

#include <ZYNPersistence/CExportServiceReport.h>
#include <ZYNPersistence/CExportServiceStatistics.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>

#include <ZYNCommon/StatisticsCollector.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <csignal>
#include <limits>
#include <memory>
#include <sys/resource.h>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

/// While it lives, files of this process cannot grow beyond a size: the disk is full at a chosen byte.
class FullDisk {
public:
    explicit FullDisk(qint64 bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &before);
        rlimit limit = before;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
};

struct Outcome {
    bool exported = false;
    bool complete = false;
};

/// What is exported: a panel with one item, its statistics, its plan.
class Models {
public:
    Models()
    {
        StatisticsCollector collector;
        collector.AddUnit(unit.data());
        statistics = collector.TakeReport();
    }

    Outcome ExportTo(const QString& kind, const QString& fileName)
    {
        if (kind == u"plan")
            return Run(plan, program.data(), fileName);
        if (kind.startsWith(u"statistics ")) {
            CExportServiceStatistics service;
            service.SetFormat(kind.mid(11));
            return Run(service, statistics.get(), fileName);
        }
        CExportServiceReport service;
        service.SetFormat(kind);
        return Run(service, unit.data(), fileName);
    }

    Outcome ExportTo(const QString& kind, QIODevice& device)
    {
        std::unique_ptr<IExportBuilder> builder;
        bool exported = false;
        if (kind == u"plan") {
            builder.reset(FormatRegistry::CreateTestPlanBuilder({}, false));
            builder->SetDevice(&device);
            exported = CExportDirectorTestPlan().ExportTestPlan(program.data(), builder.get());
        } else if (kind.startsWith(u"statistics ")) {
            builder.reset(FormatRegistry::CreateStatisticsBuilder(kind.mid(11)));
            builder->SetDevice(&device);
            exported = CExportDirectorBase::ExportStatistics(statistics.get(), builder.get());
        } else {
            builder.reset(FormatRegistry::CreateReportBuilder(kind));
            builder->SetDevice(&device);
            exported = CExportDirectorReport().ExportUUTTest(unit.data(), builder.get());
        }
        return {exported, dynamic_cast<IOutputState&>(*builder).OutputComplete()};
    }

private:
    template <class Service, class Model>
    static Outcome Run(Service& service, Model* model, const QString& fileName)
    {
        service.SetOutputFileName(fileName);
        const bool exported = service.Export(model);
        return {exported, service.OutputComplete()};
    }

    QSharedPointer<UUTTest> unit = SampleModels::Panel();
    QSharedPointer<TestProgram> program = unit->GetResultSets().constFirst()->GetTestProgram();
    std::unique_ptr<StatisticsDataReport> statistics;
    CExportServiceTestPlan plan{false};
};

} // namespace

/// No format may take a loss of output for a complete file. `Export` itself does not look at the device.
class FaultTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void DiskFullAtAByte_data();
    void DiskFullAtAByte();
    void DeviceThatBreaks_data();
    void DeviceThatBreaks();

private:
    QTemporaryDir folder;
    Environment::Override fixed{SampleModels::ReportTime(), SampleModels::EngineVersion()};
};

void FaultTest::initTestCase()
{
    // Without this the process would be ended at the limit.
    std::signal(SIGXFSZ, SIG_IGN);
}

void FaultTest::DiskFullAtAByte_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind :
         {"XML", "TXT", "CSV", "HTML", "PDF", "JSON", "STDF", "statistics XML", "statistics CSV", "plan"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void FaultTest::DiskFullAtAByte()
{
    QFETCH(QString, kind);
    Models models;
    const QString good = folder.filePath(u"good."_s + kind);
    const Outcome whole = models.ExportTo(kind, good);
    QVERIFY(whole.exported && whole.complete);
    const qint64 size = QFileInfo(good).size();
    QVERIFY(size > 0);

    for (const qint64 room : {qint64(0), qint64(1), size / 2, size - 1}) {
        const QString fileName = folder.filePath(u"%1.%2"_s.arg(QString::number(room), kind));
        Outcome outcome;
        {
            const FullDisk disk(room);
            outcome = models.ExportTo(kind, fileName);
        }
        QVERIFY2(outcome.exported && !outcome.complete, QByteArray::number(room));
    }
    Outcome fits;
    {
        const FullDisk disk(size);
        fits = models.ExportTo(kind, folder.filePath(u"fits."_s + kind));
    }
    QVERIFY(fits.exported && fits.complete);
    const Outcome full = models.ExportTo(kind, u"/dev/full"_s);
    QVERIFY(full.exported && !full.complete);
}

void FaultTest::DeviceThatBreaks_data()
{
    QTest::addColumn<QString>("kind");
    // The other formats need a file.
    for (const char* kind : {"XML", "TXT", "CSV", "HTML", "JSON", "statistics XML", "statistics CSV", "plan"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void FaultTest::DeviceThatBreaks()
{
    QFETCH(QString, kind);
    Models models;
    BreakingDevice sound(std::numeric_limits<int>::max());
    const Outcome whole = models.ExportTo(kind, sound);
    QVERIFY(whole.exported && whole.complete);
    const int writes = sound.WritesTaken();
    QVERIFY(writes > 0);

    for (int good = 0; good < writes; good += 1 + writes / 200) {
        BreakingDevice device(good);
        const Outcome outcome = models.ExportTo(kind, device);
        QVERIFY2(outcome.exported && !outcome.complete, QByteArray::number(good));
        QVERIFY(sound.written.startsWith(device.written));
    }
    BreakingDevice last(writes - 1);
    QVERIFY(!models.ExportTo(kind, last).complete);
    BreakingDevice enough(writes);
    QVERIFY(models.ExportTo(kind, enough).complete);
}

QTEST_MAIN(FaultTest)
#include "FaultTest.moc"
