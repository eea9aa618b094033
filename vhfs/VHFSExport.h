#pragma once

#include <QtGlobal>

/// Marks what libVHFS exports.
#if defined(VHFS_LIBRARY)
#define VHFS_EXPORT Q_DECL_EXPORT
#else
#define VHFS_EXPORT Q_DECL_IMPORT
#endif
