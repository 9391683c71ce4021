#pragma once

#include <benchmark/benchmark.h>

#include <functional>

namespace ZYN::Bench {

/// Times a work and its floor in turns in one run, so that the machine's moods hit both. The benchmark's
/// own time is the work's processor time (user and system); counters tell
///   ratio   time of the work by the time of the floor,
///   bar     what the ratio is to stay below, unless that is 0,
///   ns/item time of the work for one item,
///   MiB     how far the work's peak memory lay above what was in use before it, first turn only.
void Compare(benchmark::State& state, long long items, const std::function<void()>& work,
             const std::function<void()>& floor, double bar = 0.0);

} // namespace ZYN::Bench
