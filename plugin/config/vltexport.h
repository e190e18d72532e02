#pragma once

#include <QtGlobal>

/// Marks the few entry points that other libraries call; everything else of the plug-in is hidden.
#if defined(VLT_LIBRARY)
#define VLT_EXPORT Q_DECL_EXPORT
#else
#define VLT_EXPORT Q_DECL_IMPORT
#endif
