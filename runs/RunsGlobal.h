#pragma once

/// \file
/// What `libZYNRuns` exports.

#if defined(ZYNRUNS_BUILD)
#define ZYNRUNS_EXPORT __attribute__((visibility("default")))
#else
#define ZYNRUNS_EXPORT
#endif
