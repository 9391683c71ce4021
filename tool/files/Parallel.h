#pragma once

#include <QtCore/QtGlobal>

#include <atomic>
#include <thread>
#include <vector>

namespace ZYN::Tool {

/// Number of threads that keep the machine busy.
inline int AllCores()
{
    return qMax(1, int(std::thread::hardware_concurrency()));
}

/// Calls `job(index)` for every index from 0, on so many threads; with one thread on the caller's own.
/// Returns when all are done. The job must not throw.
template <typename Job>
void ForEachIndex(qsizetype count, int threads, const Job& job)
{
    std::atomic<qsizetype> next = 0;
    const auto work = [&] {
        for (qsizetype index = next++; index < count; index = next++)
            job(index);
    };
    std::vector<std::jthread> others;
    for (qsizetype i = 1; i < qMin(qsizetype(threads), count); ++i)
        others.emplace_back(work);
    work();
}

} // namespace ZYN::Tool
