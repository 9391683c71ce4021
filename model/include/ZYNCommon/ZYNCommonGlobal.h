#pragma once

#include <QtCore/QtGlobal>

/// Marks what the model library offers to others; everything else stays hidden.
#if defined(ZYNCOMMON_BUILD)
#define ZYNCOMMON_EXPORT Q_DECL_EXPORT
#else
#define ZYNCOMMON_EXPORT Q_DECL_IMPORT
#endif
