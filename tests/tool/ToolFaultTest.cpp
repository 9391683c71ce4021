#include "ToolFolder.h"
#include "support/Test.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ZYN;

namespace {

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

/// As in a container: the table of mounts names no file system. The tool does not start where this is denied.
constexpr int denied = 77;
void HideMounts()
{
    if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        _exit(denied);
    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr); // else the others would see it
    for (const char* table : {"/proc/self/mountinfo", "/proc/self/mounts"})
        if (mount("/dev/null", table, nullptr, MS_BIND, nullptr) != 0)
            _exit(denied);
    FillDisk();
}
void FillOutput()
{
    dup2(open("/dev/full", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
}

} // namespace

/// What the tool does where it cannot write: exit code 1, a sentence, and everything as it was before.
class ToolFaultTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ToolFolder> folder; // of one test, with the report a.zyr
    QByteArray report;                  // what stands in it

private slots:
    void initTestCase()
    {
        const ToolFolder lot;
        QCOMPARE(lot.Zyn("simulate -q -d . --panels 1 --items 1").code, 0);
        report = lot.Content("panel-0001.zyr");
    }

    void init()
    {
        folder = std::make_unique<ToolFolder>();
        folder->Write("a.zyr", report);
    }

    void EverythingStays_data()
    {
        const Rows<QString> row;
        row("simulate -d disk --panels 1 --force", "disk/panel-0001.zyr: could not be written completely");
        for (const QByteArray extension : {"zyr", "csv", "txt", "html", "json", "pdf"}) {
            row("convert a.zyr -o disk/old." + extension + " --force",
                "disk/old." + extension + ": could not be written");
            row("convert a.zyr -o disk/new." + extension, "disk/new." + extension + ": could not be written");
        }
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
        row("convert a.zyr -d a.zyr -f XML", "a.zyr: the folder cannot be created");
        row("convert a.zyr -f STDF -o disk", "disk: no part can be added: Is a directory");
        row("convert a.zyr -f STDF -o disk/old.csv",
            "disk/old.csv: is no STDF file, so no part can be added");
        row("convert a.zyr -f XML -o disk --force", "disk: is a folder");
        row("statistics a.zyr -f CSV -o disk --force", "disk: is a folder");

        row("simulate -d pipe", "pipe: the folder cannot be created");
        for (const QByteArray place : {"pipe", "/dev/full"})
            for (const QByteArray command :
                 {"convert a.zyr -f XML -o ", "convert a.zyr -f STDF -o ", "statistics a.zyr -f CSV -o "})
                row(command + place + (command.contains("STDF") ? "" : " --force"),
                    place + ": is a device or a pipe");

        row("convert a.zyr -o none/new.zyr", "none/new.zyr: its folder does not exist");
        row("convert a.zyr -o none/new.stdf",
            "none/new.stdf: no part can be added: No such file or directory");
        row("statistics a.zyr -o none/new.csv", "none/new.csv: its folder does not exist");
        row("convert a.zyr -o dangling -f XML --force", "dangling: is a link to nowhere");

        row("convert a.zyr -o disk/old.csv", "disk/old.csv: already exists; add --force");
        row("convert a.zyr -o ./a.zyr --force", "./a.zyr: is an input as well");
        row("convert a.zyr -f XML -o link --force", "link: is an input as well");
        row("convert a.zyr -f STDF -o a.zyr", "a.zyr: is an input as well");
        row("convert a.zyr -f STDF -o link", "link: is an input as well");
        row("statistics a.zyr -f XML -o ./a.zyr --force", "./a.zyr: is an input as well");
        row("statistics . -f XML -o link --force", "link: is an input as well");
    }
    void EverythingStays()
    {
        auto [says] = CurrentRow<QString>();
        QString arguments = QTest::currentDataTag();
        for (const QString place : {"disk/", "locked/"}) {
            for (const QString old : {"old.zyr", "old.csv", "old.txt", "old.html", "old.json", "old.pdf",
                                      "old.xml", "old.stdf", "panel-0001.zyr", "MCB-48.tpl", "bins.ini"}) {
                folder->Write(place + old, "old");
                QCOMPARE(::chmod(QFile::encodeName(folder->Path(place + old)), 0444), 0);
            }
        }
        QCOMPARE(::chmod(QFile::encodeName(folder->Path("locked")), 0555), 0);
        QCOMPARE(::mkfifo(QFile::encodeName(folder->Path("pipe")), 0600), 0);
        QVERIFY(QFile::link("a.zyr", folder->Path("link")));
        QVERIFY(QFile::link("nowhere", folder->Path("dangling")));
        const auto before = folder->Snapshot();

        const bool locked = arguments.contains("locked");
        const bool full = arguments.contains(" disk/") || arguments.contains(" disk ");
        const QString name(300, u'n');
        const auto outcome = folder->Zyn(arguments.replace("LONG", name), {},
                                         locked ? BindPermissions
                                         : full ? FillDisk
                                                : nullptr);
        QVERIFY2(outcome.code == 1, outcome.errors);
        QVERIFY2(outcome.errors.contains(("zyn: " + says.replace("LONG", name)).toUtf8()), outcome.errors);
        QVERIFY(folder->Snapshot() == before);
    }

    // A process of the same id (another container, another host) left its file, or somebody a link.
    void TemporaryNamesAreNotGuessed()
    {
        folder->Write("victim", "old");
        const auto outcome = Program::Run("sh",
                                          {"-c", "for n in 1 2 3; do ln -s victim .zyn-$$-$n.tmp; done; "
                                                 "exec " ZYN_TOOL " convert a.zyr -o new.csv"},
                                          folder->Path("."));
        QVERIFY2(outcome.code == 0, outcome.errors);
        QCOMPARE(folder->Content("victim"), QByteArray("old"));
        QVERIFY(!QFileInfo(folder->Path("new.csv")).isSymLink() && folder->Content("new.csv").size() > 1000);
    }

    void FreeSpaceIsAskedOfTheFileSystem()
    {
        const auto outcome = folder->Zyn("convert a.zyr -o b.csv", {}, HideMounts);
        if (outcome.code == denied)
            QSKIP("no namespace of mounts can be made here");
        QVERIFY2(outcome.errors.contains("b.csv: could not be written completely"), outcome.errors);
    }

    void OutputThatDoesNotArrive_data()
    {
        const Rows<> row;
        for (const char* arguments : {"--help", "--version", "convert --help", "formats", "show a.zyr"})
            row(arguments);
    }
    void OutputThatDoesNotArrive()
    {
        const auto outcome = folder->Zyn(QTest::currentDataTag(), {}, FillOutput);
        QCOMPARE(outcome.code, 1);
        QVERIFY2(outcome.errors.contains("standard output: not everything could be written"), outcome.errors);
    }

    // Somebody clears the folder while a report is written.
    void RemovedWhileOpen()
    {
        QCOMPARE(folder->Zyn("simulate -q -d big --panels 1 --items 1 --steps 2000").code, 0);
        folder->Write("old.csv", "old");
        QProcess tool;
        tool.setWorkingDirectory(folder->Path("."));
        tool.start(ZYN_TOOL, {"convert", "big/panel-0001.zyr", "-o", "old.csv", "--force"});
        const QDir place(folder->Path("."));
        QStringList temporary;
        QElapsedTimer timer;
        for (timer.start(); temporary.isEmpty() && timer.elapsed() < 60000;)
            temporary = place.entryList({".zyn-*.tmp"}, QDir::Files | QDir::Hidden);
        QVERIFY(!temporary.isEmpty() && QFile::remove(folder->Path(temporary.constFirst())));
        QVERIFY(tool.waitForFinished(60000));
        QCOMPARE(tool.exitCode(), 1);
        const QByteArray errors = tool.readAllStandardError();
        QVERIFY2(errors.contains("old.csv: somebody removed or replaced its temporary file"), errors);
        QCOMPARE(folder->Content("old.csv"), QByteArray("old"));
    }
};

QTEST_GUILESS_MAIN(ToolFaultTest)
#include "ToolFaultTest.moc"
