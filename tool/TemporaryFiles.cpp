#include "TemporaryFiles.h"

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
    char path[PATH_MAX];
};

// A fixed table, because a signal handler may neither allocate nor wait for a lock. Each thread writes one
// file at a time; a file that finds no slot is written all the same.
Slot table[256];

extern "C" void RemoveAndDie(int signal)
{
    for (Slot& slot : table)
        if (slot.state == Used)
            unlink(slot.path);
    std::signal(signal, SIG_DFL);
    raise(signal);
}

void InstallHandlers()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        if (std::signal(signal, RemoveAndDie) == SIG_IGN) // nohup and background jobs stay so
            std::signal(signal, SIG_IGN);
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
            table[i].state = Used;
            m_slot = i;
        }
    }
}

TemporaryFile::~TemporaryFile()
{
    if (m_slot >= 0)
        table[m_slot].state = Free;
}

} // namespace ZYN::Tool
