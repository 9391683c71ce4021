#include "FaultModels.h"
#include "SystemFaults.h"

#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <csignal>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

QByteArray Content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

bool Save(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

/// What every format does at a place where no file can be made, or where it does not stay.
class FaultPlaceTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void Places_data();
    void Places();
    void ReportOverItsSource();

private:
    QTemporaryDir folder;
    Environment::Override fixed{SampleModels::ReportTime(), SampleModels::EngineVersion()};
};

void FaultPlaceTest::initTestCase()
{
    // Without this the process would be ended at the limit, and by a pipe that nobody reads.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

void FaultPlaceTest::Places_data()
{
    struct Row {
        const char* fault;
        bool exported;
        bool complete;
        const char* after; // what stands under the name afterwards
    };
    constexpr Row rows[] = {
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
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("exported");
    QTest::addColumn<bool>("complete");
    QTest::addColumn<QString>("after");
    for (const Row& row : rows)
        for (const char* const kind : FaultKinds) {
            const QString name = QString::fromLatin1(kind);
            const QString fault = QString::fromLatin1(row.fault);
            const bool happensLater = fault == u"removed while open" || fault.endsWith(u"leaves");
            const bool pdf = name == u"PDF";                // which makes its file when the walk is over
            const bool refused = pdf && fault == u"a pipe"; // it is read back
            const bool ownReader = name == u"STDF" && fault.endsWith(u"leaves"); // opened for reading too
            if ((pdf && happensLater) || ownReader)
                continue;
            QTest::addRow("%s %s", kind, row.fault)
                << name << fault << (row.exported || pdf) << (row.complete && !refused)
                << (refused ? u"nothing"_s : QString::fromLatin1(row.after));
        }
}

void FaultPlaceTest::Places()
{
    QFETCH(QString, kind);
    QFETCH(QString, fault);
    Models models;
    const QString good = folder.filePath(u"whole"_s);
    QFile::remove(good);
    QVERIFY(models.ExportTo(kind, good).complete);

    const QTemporaryDir place;
    const QByteArray path = QFile::encodeName(place.path());
    QString fileName = place.filePath(u"report"_s);
    int pipe = -1;
    std::optional<SystemFaults::OrdinaryUser> user;
    std::optional<SystemFaults::FullDisk> disk;
    std::function<void()> happens;
    if (fault == u"a folder") {
        QVERIFY(QDir().mkdir(fileName));
    } else if (fault == u"no folder") {
        fileName = place.filePath(u"none/report"_s);
    } else if (fault == u"name too long") {
        fileName = place.filePath(QString(300, u'n'));
    } else if (fault == u"read-only folder") {
        QCOMPARE(::chmod(path, 0555), 0);
        user.emplace();
    } else if (fault == u"read-only file") {
        QVERIFY(Save(fileName, "old"));
        QCOMPARE(::chmod(QFile::encodeName(fileName), 0444), 0);
        QCOMPARE(::chmod(path, 0777), 0);
        user.emplace();
    } else if (fault == u"disk full") {
        if (kind != u"STDF") // which adds to what is there
            QVERIFY(Save(fileName, "old"));
        disk.emplace(10);
    } else if (fault.startsWith(u"a pipe")) {
        QCOMPARE(::mkfifo(QFile::encodeName(fileName), 0600), 0);
        pipe = ::open(QFile::encodeName(fileName), O_RDONLY | O_NONBLOCK);
        QVERIFY(::fcntl(pipe, F_SETPIPE_SZ, 1 << 20) > 0);
        if (fault.endsWith(u"leaves"))
            happens = [&] { ::close(pipe); };
    } else {
        happens = [&] { QVERIFY(QFile::remove(fileName)); };
    }
    const Outcome outcome =
        happens ? models.ExportTo(kind, fileName, happens) : models.ExportTo(kind, fileName);
    user.reset();
    disk.reset();

    QTEST(outcome.exported, "exported");
    QTEST(outcome.complete, "complete");
    QFETCH(QString, after);
    if (after == u"a folder") {
        QVERIFY(QFileInfo(fileName).isDir());
    } else if (fault.endsWith(u"leaves")) {
        return;
    } else if (pipe >= 0) {
        QFile reader;
        QVERIFY(reader.open(pipe, QIODevice::ReadOnly, QFile::AutoCloseHandle));
        QCOMPARE(reader.readAll(), after == u"nothing" ? QByteArray() : Content(good));
    } else if (after == u"nothing") {
        QVERIFY(!QFile::exists(fileName));
    } else if (after == u"the old file") {
        QCOMPARE(Content(fileName), QByteArray("old"));
    } else {
        QVERIFY(Content(fileName).size() <= 10 && !Content(fileName).startsWith("old"));
    }
}

// Nothing of a document that was read is still open or needed.
void FaultPlaceTest::ReportOverItsSource()
{
    const QString fileName = folder.filePath(u"source.zyr"_s);
    Models models;
    QVERIFY(models.ExportTo(u"XML"_s, fileName).complete);
    UUTTest test(0, QString());
    CImportServiceReport import;
    import.SetFormat(u"XML"_s);
    import.SetInputFileName(fileName);
    QVERIFY(import.Import(&test));
    CExportServiceReport service;
    service.SetFormat(u"XML"_s);
    for (const QString& name : {fileName, folder.filePath(u"elsewhere.zyr"_s)}) {
        service.SetOutputFileName(name);
        QVERIFY(service.Export(&test) && service.OutputComplete());
    }
    QCOMPARE(Content(fileName), Content(folder.filePath(u"elsewhere.zyr"_s)));
}

QTEST_MAIN(FaultPlaceTest)
#include "FaultPlaceTest.moc"
