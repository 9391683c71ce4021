#include "support/Test.h"
#include "files/TemporaryFiles.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

/// In place of the C library's: removing takes so long that other threads could make their files again.
extern "C" int unlink(const char* path) noexcept
{
    const long result = syscall(SYS_unlinkat, AT_FDCWD, path, 0);
    usleep(20'000);
    return int(result);
}

namespace {

[[noreturn]] void WriteForEver(const QByteArray& start)
{
    for (int number = 0;; ++number) {
        const QByteArray path = start + QByteArray::number(number % 3);
        const ZYN::Tool::TemporaryFile temporary(path);
        close(open(path.constData(), O_WRONLY | O_CREAT, 0666));
        syscall(SYS_unlinkat, AT_FDCWD, path.constData(), 0);
    }
}

} // namespace

/// What is left of half-written files when a process is told to end: nothing.
class InterruptTest : public QObject {
    Q_OBJECT

private slots:
    // Several times, as it depends on what the threads are at.
    void NoTemporaryFileStays()
    {
        const QTemporaryDir folder;
        const QByteArray start = QFile::encodeName(folder.path()) + '/';
        const QDir place(folder.path());
        const auto exists = [&](const char* name) { return !place.entryList({name}, QDir::Files).isEmpty(); };
        for (int round = 0; round < 10; ++round) {
            const pid_t child = fork();
            if (child == 0) {
                std::thread one([&] { WriteForEver(start + 'a'); });
                std::thread two([&] { WriteForEver(start + 'b'); });
                WriteForEver(start + 'c');
            }
            while (!exists("a*") || !exists("b*"))
                usleep(100);
            QCOMPARE(kill(child, SIGINT), 0);
            int status = 0;
            QCOMPARE(waitpid(child, &status, 0), child);
            QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
            QCOMPARE(place.entryList(QDir::Files), QStringList());
        }
    }
};

QTEST_GUILESS_MAIN(InterruptTest)
#include "InterruptTest.moc"
