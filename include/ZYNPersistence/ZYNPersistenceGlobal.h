#pragma once

#include <QtCore/QtGlobal>

/// Marks what the persistence library offers to others; everything else stays hidden.
#if defined(ZYNPERSISTENCE_BUILD)
#define ZYNPERSISTENCE_EXPORT Q_DECL_EXPORT
#elif defined(ZYNPERSISTENCE_STATIC)
#define ZYNPERSISTENCE_EXPORT
#else
#define ZYNPERSISTENCE_EXPORT Q_DECL_IMPORT
#endif
