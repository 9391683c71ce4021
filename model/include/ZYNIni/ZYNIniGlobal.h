#pragma once

#include <QtCore/QtGlobal>

/// Marks what the INI reader offers to others; everything else stays hidden.
#if defined(ZYNINI_BUILD)
#define ZYNINI_EXPORT Q_DECL_EXPORT
#else
#define ZYNINI_EXPORT Q_DECL_IMPORT
#endif
