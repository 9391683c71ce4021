#include "Comparison.h"

#include <QtCore/QByteArray>
#include <QtCore/QFile>

#include <malloc.h>
#include <time.h>

#include <algorithm>

namespace ZYN::Bench {

namespace {

/// Processor time of this thread, user and system: what other processes do does not count.
double ThreadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

double Seconds(const std::function<void()>& work)
{
    const double start = ThreadSeconds();
    work();
    return ThreadSeconds() - start;
}

/// A memory figure of this process in MiB, as proc(5) describes /proc/self/status.
double MemoryMiB(const QByteArray& name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0.0;
    const QByteArray text = status.readAll();
    const qsizetype start = text.indexOf(name + ':') + name.size() + 1;
    return text.mid(start, text.indexOf("kB", start) - start).trimmed().toDouble() / 1024.0;
}

/// Sets the peak back to what is in use.
void ForgetPeak()
{
    malloc_trim(0);
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5");
}

} // namespace

void Compare(benchmark::State& state, long long items, const std::function<void()>& work,
             const std::function<void()>& floor, double bar)
{
    double workSeconds = 0.0;
    double floorSeconds = 0.0;
    // Once before all turns: each one would else get its memory from the system anew.
    ForgetPeak();
    const double before = MemoryMiB("VmRSS");
    work();
    const double peak = std::max(0.0, MemoryMiB("VmHWM") - before);
    for ([[maybe_unused]] auto turn : state) {
        const double seconds = Seconds(work);
        workSeconds += seconds;
        floorSeconds += Seconds(floor);
        state.SetIterationTime(seconds);
    }
    const double turns = double(state.iterations());
    state.counters["ratio"] = workSeconds / floorSeconds;
    if (bar > 0.0)
        state.counters["bar"] = bar;
    state.counters["ns/item"] = workSeconds * 1e9 / turns / double(items);
    state.counters["MiB"] = peak;
}

} // namespace ZYN::Bench
