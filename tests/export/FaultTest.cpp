#include "FaultDevices.h"
#include "SystemFaults.h"
#include "import/ReportFiles.h"
#include "support/SampleModels.h"
#include "support/Test.h"

#include "export/CExportDirectorReport.h"
#include "export/CExportDirectorTestPlan.h"
#include "export/Environment.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"
#include "export/IOutputState.h"

#include <ZYNPersistence/CExportServiceStatistics.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>

#include <csignal>
#include <limits>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ZYN;

namespace {

constexpr int NoEnd = std::numeric_limits<int>::max();

/// All that the library writes; what of it needs no file comes first.
const QStringList kinds{"XML",  "TXT", "CSV", "HTML", "JSON", "statistics XML", "statistics CSV",
                        "plan", "PDF", "STDF"};

struct Outcome {
    bool exported = false;
    bool complete = false;

    bool IsGood() const { return exported && complete; }
    /// `Export` itself does not look at the device.
    bool IsNoticed() const { return exported && !complete; }
};

/// What is exported: a unit, its statistics, its plan.
class Models {
public:
    explicit Models(const QSharedPointer<UUTTest>& tested = SampleModels::Panel())
        : unit(tested)
        , program(unit->GetResultSets().constFirst()->GetTestProgram())
    {
        StatisticsCollector collector;
        collector.AddUnit(unit.data());
        statistics = collector.TakeReport();
    }

    /// By the exported service.
    Outcome ExportTo(const QString& kind, const QString& fileName)
    {
        CExportServiceReport report;
        CExportServiceStatistics table;
        if (kind == "plan")
            return Run(plan, program.data(), fileName);
        if (kind.startsWith("statistics ")) {
            table.SetFormat(kind.mid(11));
            return Run(table, statistics.get(), fileName);
        }
        report.SetFormat(kind);
        return Run(report, unit.data(), fileName);
    }

    /// By the builder alone.
    /// \param prepare gives it its device; nothing is written yet
    Outcome Walk(const QString& kind, const std::function<bool(IExportBuilder&)>& prepare)
    {
        const bool isTable = kind.startsWith("statistics ");
        const std::unique_ptr<IExportBuilder> builder(
            kind == "plan" ? FormatRegistry::CreateTestPlanBuilder({}, false)
            : isTable      ? FormatRegistry::CreateStatisticsBuilder(kind.mid(11))
                           : FormatRegistry::CreateReportBuilder(kind));
        if (!prepare(*builder))
            return {};
        const bool exported =
            kind == "plan" ? CExportDirectorTestPlan().ExportTestPlan(program.data(), builder.get())
            : isTable      ? CExportDirectorBase::ExportStatistics(statistics.get(), builder.get())
                           : CExportDirectorReport().ExportUUTTest(unit.data(), builder.get());
        return {exported, dynamic_cast<IOutputState&>(*builder).OutputComplete()};
    }
    Outcome ExportTo(const QString& kind, QIODevice& device)
    {
        return Walk(kind, [&](IExportBuilder& builder) {
            builder.SetDevice(&device);
            return true;
        });
    }

private:
    template <class Service, class Model>
    static Outcome Run(Service& service, Model* model, const QString& fileName)
    {
        service.SetOutputFileName(fileName);
        const bool exported = service.Export(model);
        return {exported, service.OutputComplete()};
    }

    QSharedPointer<UUTTest> unit;
    QSharedPointer<TestProgram> program;
    std::unique_ptr<StatisticsDataReport> statistics;
    CExportServiceTestPlan plan{false};
};

} // namespace

/// No format may take a loss of output for a complete file, nor leave anything where no file can be made.
class FaultTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder;
    Environment::Override fixed{SampleModels::ReportTime(), SampleModels::EngineVersion()};

    QString Path(const QString& name) const { return folder.filePath(name); }

private slots:
    void initTestCase()
    {
        // Without this the process would be ended at the limit, and by a pipe that nobody reads.
        std::signal(SIGXFSZ, SIG_IGN);
        std::signal(SIGPIPE, SIG_IGN);
    }

    void DiskFullAtAByte_data()
    {
        const Rows<> row;
        for (const QString& kind : kinds)
            row(qPrintable(kind));
    }
    void DiskFullAtAByte()
    {
        const QString kind = QTest::currentDataTag();
        Models models;
        QVERIFY(models.ExportTo(kind, Path("good." + kind)).IsGood());
        const qint64 size = QFileInfo(Path("good." + kind)).size();
        QVERIFY(size > 0);
        for (const qint64 room : {qint64(0), qint64(1), size / 2, size - 1, size}) {
            std::optional<SystemFaults::FullDisk> disk(room);
            const Outcome outcome = models.ExportTo(kind, Path(QString::number(room) + kind));
            disk.reset();
            QVERIFY2(room == size ? outcome.IsGood() : outcome.IsNoticed(), QByteArray::number(room));
        }
        QVERIFY(models.ExportTo(kind, "/dev/full").IsNoticed());
    }

    void DeviceThatBreaks_data()
    {
        const Rows<> row;
        for (const QString& kind : kinds.first(8))
            row(qPrintable(kind));
    }
    void DeviceThatBreaks()
    {
        const QString kind = QTest::currentDataTag();
        Models models;
        BreakingDevice sound(NoEnd);
        QVERIFY(models.ExportTo(kind, sound).IsGood());
        const int writes = sound.WritesTaken();
        QVERIFY(writes > 0);
        for (int good = 0; good < writes; good += 1 + writes / 200) {
            BreakingDevice device(good);
            QVERIFY2(models.ExportTo(kind, device).IsNoticed(), QByteArray::number(good));
            QVERIFY(sound.written.startsWith(device.written));
        }
        BreakingDevice last(writes - 1);
        QVERIFY(models.ExportTo(kind, last).IsNoticed());
        BreakingDevice enough(writes);
        QVERIFY(models.ExportTo(kind, enough).IsGood());
    }

    // Also where one write is lost and all that follow are taken.
    void BadDisk_data() { DiskFullAtAByte_data(); }
    void BadDisk()
    {
        using SystemFaults::BadDisk;
        const QString kind = QTest::currentDataTag();
        const QString fileName = Path("bad." + kind);
        for (const auto& unit : {SampleModels::Panel(), SampleModels::UnitWithRows(300, "Row %1")}) {
            Models models(unit);
            int writes = 0;
            {
                const BadDisk sound(NoEnd, BadDisk::Once);
                QVERIFY(models.ExportTo(kind, fileName).IsGood());
                writes = sound.Writes();
            }
            QVERIFY(writes > 0);
            for (const BadDisk::Refusal refusal : {BadDisk::Once, BadDisk::ForGood})
                for (int good = 0; good < writes; good += 1 + writes / 50) {
                    QFile::remove(fileName);
                    const BadDisk disk(good, refusal);
                    QVERIFY2(models.ExportTo(kind, fileName).IsNoticed(), QByteArray::number(good));
                }
        }
    }

    void Places_data()
    {
        // What stands under the name afterwards comes last.
        const std::tuple<const char*, bool, bool, const char*> faults[] = {
            {"a folder", false, false, "a folder"},
            {"no folder", false, false, "nothing"},
            {"name too long", false, false, "nothing"},
            {"read-only folder", false, false, "nothing"},
            {"read-only file", false, false, "the old file"},
            {"disk full", true, false, "a part"},
            {"a pipe", true, true, "the whole"},
            {"a pipe whose reader leaves", true, false, "a part"},
            {"removed while open", true, true, "nothing"},
        };
        const Rows<QString, QString, bool, bool, QString> row;
        for (const auto& [faultName, exported, complete, after] : faults)
            for (const QString& kind : kinds) {
                const QString fault = faultName;
                const bool happensLater = fault == "removed while open" || fault.endsWith("leaves");
                const bool pdf = kind == "PDF";                // which makes its file when the walk is over
                const bool refused = pdf && fault == "a pipe"; // it is read back
                const bool ownReader = kind == "STDF" && fault.endsWith("leaves"); // opened for reading too
                if ((!pdf || !happensLater) && !ownReader)
                    row(qPrintable(kind + ' ' + fault), kind, fault, exported || pdf, complete && !refused,
                        refused ? "nothing" : after);
            }
    }
    void Places()
    {
        const auto [kind, fault, exported, complete, after] =
            CurrentRow<QString, QString, bool, bool, QString>();
        Models models;
        QFile::remove(Path("whole"));
        QVERIFY(models.ExportTo(kind, Path("whole")).complete);

        const QTemporaryDir place;
        const QByteArray path = QFile::encodeName(place.path());
        const QString fileName = place.filePath(fault == "no folder"       ? "none/report"
                                                : fault == "name too long" ? QString(300, u'n')
                                                                           : QString("report"));
        int pipe = -1;
        std::optional<SystemFaults::OrdinaryUser> user;
        std::optional<SystemFaults::FullDisk> disk;
        if (fault == "a folder") {
            QVERIFY(QDir().mkdir(fileName));
        } else if (fault == "read-only folder") {
            QCOMPARE(::chmod(path, 0555), 0);
            user.emplace();
        } else if (fault == "read-only file") {
            QCOMPARE(::chmod(QFile::encodeName(Files::Write(fileName, "old")), 0444), 0);
            QCOMPARE(::chmod(path, 0777), 0);
            user.emplace();
        } else if (fault == "disk full") {
            if (kind != "STDF") // which adds to what is there
                Files::Write(fileName, "old");
            disk.emplace(10);
        } else if (fault.startsWith("a pipe")) {
            QCOMPARE(::mkfifo(QFile::encodeName(fileName), 0600), 0);
            pipe = ::open(QFile::encodeName(fileName), O_RDONLY | O_NONBLOCK);
            QVERIFY(::fcntl(pipe, F_SETPIPE_SZ, 1 << 20) > 0);
        }
        const bool leaves = fault.endsWith("leaves");
        const auto befallsTheOpenFile = [&](IExportBuilder& builder) {
            return builder.OpenFile(fileName) && (leaves ? ::close(pipe) == 0 : QFile::remove(fileName));
        };
        const Outcome outcome = leaves || fault == "removed while open"
                                    ? models.Walk(kind, befallsTheOpenFile)
                                    : models.ExportTo(kind, fileName);
        user.reset();
        disk.reset();

        QCOMPARE(outcome.exported, exported);
        QCOMPARE(outcome.complete, complete);
        if (leaves)
            return;
        if (after == "a folder") {
            QVERIFY(QFileInfo(fileName).isDir());
        } else if (pipe >= 0) {
            QFile reader;
            QVERIFY(reader.open(pipe, QIODevice::ReadOnly, QFile::AutoCloseHandle));
            QCOMPARE(reader.readAll(), after == "nothing" ? QByteArray() : Files::Content(Path("whole")));
        } else if (after == "nothing") {
            QVERIFY(!QFile::exists(fileName));
        } else if (after == "the old file") {
            QCOMPARE(Files::Content(fileName), QByteArray("old"));
        } else {
            QVERIFY(Files::Content(fileName).size() <= 10 && !Files::Content(fileName).startsWith("old"));
        }
    }

    // Nothing of a document that was read is still open or needed.
    void ReportOverItsSource()
    {
        const auto imported = ReportFiles::Read(ReportFiles::Write(*SampleModels::Panel()));
        Models models{QSharedPointer<UUTTest>(imported.test.get(), [](UUTTest*) {})};
        for (const QString& name : {ReportFiles::ScratchFile(), Path("elsewhere.zyr")})
            QVERIFY(models.ExportTo("XML", name).IsGood());
        QCOMPARE(Files::Content(ReportFiles::ScratchFile()), Files::Content(Path("elsewhere.zyr")));
    }
};

QTEST_MAIN(FaultTest)
#include "FaultTest.moc"
