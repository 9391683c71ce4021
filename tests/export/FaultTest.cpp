#include "FaultDevices.h"
#include "FaultModels.h"
#include "SystemFaults.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <csignal>
#include <limits>

using namespace ZYN;
using namespace Qt::StringLiterals;

/// No format may take a loss of output for a complete file. `Export` itself does not look at the device.
class FaultTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void DiskFullAtAByte_data();
    void DiskFullAtAByte();
    void DeviceThatBreaks_data();
    void DeviceThatBreaks();
    void BadDisk_data();
    void BadDisk();

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
    for (const char* kind : FaultKinds)
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
            const SystemFaults::FullDisk disk(room);
            outcome = models.ExportTo(kind, fileName);
        }
        QVERIFY2(outcome.exported && !outcome.complete, QByteArray::number(room));
    }
    Outcome fits;
    {
        const SystemFaults::FullDisk disk(size);
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

void FaultTest::BadDisk_data()
{
    DiskFullAtAByte_data();
}

// Also where one write is lost and all that follow are taken.
void FaultTest::BadDisk()
{
    QFETCH(QString, kind);
    using SystemFaults::BadDisk;
    const QString fileName = folder.filePath(u"bad."_s + kind);
    for (const auto& unit : {SampleModels::Panel(), LongUnit()}) {
        Models models(unit);
        int writes = 0;
        {
            const BadDisk sound(std::numeric_limits<int>::max(), BadDisk::Once);
            const Outcome whole = models.ExportTo(kind, fileName);
            QVERIFY(whole.exported && whole.complete);
            writes = sound.Writes();
        }
        QVERIFY(writes > 0);
        for (const BadDisk::Refusal refusal : {BadDisk::Once, BadDisk::ForGood})
            for (int good = 0; good < writes; good += 1 + writes / 50) {
                QFile::remove(fileName);
                const BadDisk disk(good, refusal);
                const Outcome outcome = models.ExportTo(kind, fileName);
                QVERIFY2(outcome.exported && !outcome.complete, QByteArray::number(good));
            }
    }
}

QTEST_MAIN(FaultTest)
#include "FaultTest.moc"
