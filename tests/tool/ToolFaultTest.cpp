#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

bool Save(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// Every regular file below a folder with its content, hidden ones too.
QMap<QString, QByteArray> Snapshot(const QString& folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(path, Content(path));
    }
    return files;
}

/// In the tool's process: permissions bind, also where the tests run as root; a disk of 200 bytes.
void BindPermissions()
{
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
}
void FillDisk()
{
    const rlimit limit{200, 200};
    setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace

/// What the tool does where it cannot write: exit code 1, a sentence, and everything as it was before.
class ToolFaultTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void everythingStays_data();
    void everythingStays();
    void removedWhileOpen();

private:
    void Start(QProcess& process, const QString& arguments) const;

    std::unique_ptr<QTemporaryDir> folder; // of one test, with the report a.zyr
};

void ToolFaultTest::Start(QProcess& process, const QString& arguments) const
{
    process.setWorkingDirectory(folder->path());
    process.start(QStringLiteral(ZYN_TOOL), arguments.split(u' ', Qt::SkipEmptyParts));
    process.closeWriteChannel();
}

void ToolFaultTest::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QProcess simulate;
    Start(simulate, u"simulate -q -d . --panels 1 --items 1"_s);
    QVERIFY(simulate.waitForFinished(60000) && simulate.exitCode() == 0);
    QVERIFY(QFile::rename(folder->filePath(u"panel-0001.zyr"_s), folder->filePath(u"a.zyr"_s)));
}

void ToolFaultTest::everythingStays_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("says");
    const auto row = [](const char* arguments, const char* says) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(says);
    };
    // What `convert` does into a report is tested with it.
    row("simulate -d disk --panels 1 --force", "disk/panel-0001.zyr: could not be written completely");
    row("statistics a.zyr -o disk/old.csv --force", "disk/old.csv: could not be written completely");
    row("statistics a.zyr -o disk/old.xml --force", "disk/old.xml: could not be written completely");

    row("simulate -d locked --panels 1 --force", "locked/bins.ini: its folder cannot be written to");
    row("simulate -d locked/new", "locked/new: the folder cannot be created");
    row("convert a.zyr -o locked/old.csv --force", "locked/old.csv: its folder cannot be written to");
    row("convert a.zyr -o locked/new.stdf", "locked/new.stdf: no part can be added: Permission denied");
    row("convert a.zyr -o locked/old.stdf", "locked/old.stdf: no part can be added: Permission denied");
    row("convert a.zyr -d locked/new -f csv", "locked/new: the folder cannot be created");
    row("statistics a.zyr -o locked/old.csv --force", "locked/old.csv: its folder cannot be written to");

    row("simulate -d LONG", "LONG: the folder cannot be created");
    row("convert a.zyr -o LONG.csv", "LONG.csv: could not be written: File name too long");
    row("convert a.zyr -o LONG.stdf", "LONG.stdf: no part can be added: File name too long");
    row("statistics a.zyr -o LONG.csv", "LONG.csv: could not be written: File name too long");

    row("simulate -d a.zyr", "a.zyr: the folder cannot be created");
    row("convert a.zyr -f STDF -o disk", "disk: no part can be added: Is a directory");
    row("statistics a.zyr -f CSV -o disk --force", "disk: is a folder");

    row("simulate -d pipe", "pipe: the folder cannot be created");
    row("convert a.zyr -f STDF -o pipe", "pipe: is a device or a pipe");
    row("convert a.zyr -f STDF -o /dev/full", "/dev/full: is a device or a pipe");
    row("statistics a.zyr -f CSV -o pipe --force", "pipe: is a device or a pipe");

    row("convert a.zyr -o none/new.stdf", "none/new.stdf: no part can be added: No such file or directory");
    row("statistics a.zyr -o none/new.csv", "none/new.csv: its folder does not exist");

    row("convert a.zyr -f STDF -o a.zyr", "a.zyr: is an input as well");
    row("convert a.zyr -f STDF -o link", "link: is an input as well");
    row("statistics a.zyr -f XML -o ./a.zyr --force", "./a.zyr: is an input as well");
    row("statistics . -f XML -o link --force", "link: is an input as well");
}

void ToolFaultTest::everythingStays()
{
    QFETCH(QString, arguments);
    QFETCH(QString, says);
    const QString name(300, u'n');
    for (const QString& place : {u"disk"_s, u"locked"_s}) {
        QVERIFY(QDir(folder->path()).mkdir(place));
        for (const QString& old : {u"old.csv"_s, u"old.xml"_s, u"old.stdf"_s, u"panel-0001.zyr"_s,
                                   u"MCB-48.tpl"_s, u"bins.ini"_s}) {
            const QString path = folder->filePath(place + u'/' + old);
            QVERIFY(Save(path, "old"));
            QCOMPARE(::chmod(QFile::encodeName(path), 0444), 0);
        }
    }
    QCOMPARE(::chmod(QFile::encodeName(folder->filePath(u"locked"_s)), 0555), 0);
    QCOMPARE(::mkfifo(QFile::encodeName(folder->filePath(u"pipe"_s)), 0600), 0);
    QVERIFY(QFile::link(u"a.zyr"_s, folder->filePath(u"link"_s)));
    const auto before = Snapshot(folder->path());

    QProcess tool;
    if (arguments.contains(u"locked"_s))
        tool.setChildProcessModifier(BindPermissions);
    else if (arguments.contains(u" disk"_s))
        tool.setChildProcessModifier(FillDisk);
    Start(tool, QString(arguments).replace(u"LONG"_s, name));
    QVERIFY(tool.waitForFinished(60000));
    const QString errors = QString::fromUtf8(tool.readAllStandardError());
    QVERIFY2(tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 1, qPrintable(errors));
    QVERIFY2(errors.contains(u"zyn: "_s + QString(says).replace(u"LONG"_s, name)), qPrintable(errors));
    QVERIFY(Snapshot(folder->path()) == before);
}

// Somebody clears the folder while a report is written.
void ToolFaultTest::removedWhileOpen()
{
    QProcess simulate;
    Start(simulate, u"simulate -q -d big --panels 1 --items 1 --steps 2000"_s);
    QVERIFY(simulate.waitForFinished(60000) && simulate.exitCode() == 0);
    QVERIFY(Save(folder->filePath(u"old.csv"_s), "old"));

    QProcess tool;
    Start(tool, u"convert big/panel-0001.zyr -o old.csv --force"_s);
    const QDir place(folder->path());
    QStringList temporary;
    QElapsedTimer timer;
    for (timer.start(); temporary.isEmpty() && timer.elapsed() < 60000;)
        temporary = place.entryList({u".zyn-*.tmp"_s}, QDir::Files | QDir::Hidden);
    QVERIFY(!temporary.isEmpty() && QFile::remove(folder->filePath(temporary.constFirst())));
    QVERIFY(tool.waitForFinished(60000));
    QCOMPARE(tool.exitCode(), 1);
    const QString errors = QString::fromUtf8(tool.readAllStandardError());
    QVERIFY2(errors.contains(u"old.csv: could not be written: No such file"_s), qPrintable(errors));
    QCOMPARE(Content(folder->filePath(u"old.csv"_s)), QByteArray("old"));
}

QTEST_GUILESS_MAIN(ToolFaultTest)
#include "ToolFaultTest.moc"
