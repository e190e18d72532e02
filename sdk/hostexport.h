#pragma once

#include <QtGlobal>

/// Marks what the design environment exports to its plug-ins. The library that implements the
/// contract is built with HOST_LIBRARY defined; all others import.
#if defined(HOST_LIBRARY)
#define HOST_EXPORT Q_DECL_EXPORT
#else
#define HOST_EXPORT Q_DECL_IMPORT
#endif
