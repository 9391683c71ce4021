#include "files/TemporaryFiles.h"

#include <atomic>
#include <climits>
#include <csignal>
#include <cstring>
#include <mutex>

#include <unistd.h>

namespace ZYN::Tool {

namespace {

enum State : int { Free, Filling, Used };

struct Slot {
    std::atomic<int> state;
    pid_t thread;
    char path[PATH_MAX];
};

// A fixed table, because a signal handler may neither allocate nor wait for a lock. Each thread writes one
// file at a time; a file that finds no slot is written all the same.
Slot table[256];

// A thread that is in the middle of its work could make its file once more after it was removed. So the other
// threads are stopped first, by a signal of their own.
constexpr int stopSignal = SIGUSR2;
constexpr int longestWait = 2000; // milliseconds, for a thread that the system holds up
std::atomic<bool> ending;
std::atomic<int> stopped;

[[noreturn]] void WaitForTheEnd()
{
    for (;;)
        pause();
}

extern "C" void StopThread(int)
{
    ++stopped;
    WaitForTheEnd();
}

void StopOtherWriters()
{
    int asked = 0;
    for (const Slot& slot : table)
        if (slot.state == Used && slot.thread != gettid() && tgkill(getpid(), slot.thread, stopSignal) == 0)
            ++asked;
    constexpr timespec millisecond{0, 1'000'000};
    for (int waited = 0; stopped < asked && waited < longestWait; ++waited)
        nanosleep(&millisecond, nullptr);
}

extern "C" void RemoveAndDie(int signal)
{
    if (ending.exchange(true))
        WaitForTheEnd(); // a second signal, in another thread
    StopOtherWriters();
    for (Slot& slot : table)
        if (slot.state == Used)
            unlink(slot.path);
    std::signal(signal, SIG_DFL);
    raise(signal);
}

void InstallHandlers()
{
    struct sigaction action {};
    action.sa_handler = StopThread;
    action.sa_flags = SA_NODEFER; // a thread may have several files
    sigaction(stopSignal, &action, nullptr);

    action.sa_handler = RemoveAndDie;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&action.sa_mask, signal);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) // nohup and background jobs stay so
            sigaction(signal, &action, nullptr);
    }
}

} // namespace

TemporaryFile::TemporaryFile(const QByteArray& path)
    : m_slot(-1)
{
    static std::once_flag once;
    std::call_once(once, InstallHandlers);
    if (path.size() >= PATH_MAX)
        return;
    for (int i = 0; i < int(std::size(table)) && m_slot < 0; ++i) {
        int expected = Free;
        if (table[i].state.compare_exchange_strong(expected, Filling)) {
            std::memcpy(table[i].path, path.constData(), size_t(path.size()) + 1);
            table[i].thread = gettid();
            table[i].state = Used;
            m_slot = i;
        }
    }
    if (ending)
        WaitForTheEnd(); // who removes the files may have passed this one
}

TemporaryFile::~TemporaryFile()
{
    if (m_slot >= 0)
        table[m_slot].state = Free;
}

} // namespace ZYN::Tool
