#pragma once

/// Memory that runs out, for the whole process: malloc and its kin, `new`, and all that uses them. With the
/// address sanitizer as a shared library (GCC) or without it.
namespace ZYN::ScarceMemory {

enum Refusal { Once, ForGood };

/// Begins to count allocations; the one after `good` gets nothing, or none after it.
void Start(long good, Refusal refusal);
/// Ends it.
/// \return allocations since the start, refused ones among them
long Stop();

} // namespace ZYN::ScarceMemory
