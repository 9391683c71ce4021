#pragma once

/// \file
/// What `libZYNArchive` exports.

#if defined(ZYNARCHIVE_BUILD)
#define ZYNARCHIVE_EXPORT __attribute__((visibility("default")))
#else
#define ZYNARCHIVE_EXPORT
#endif
