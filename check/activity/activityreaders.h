#pragma once

#include "check/activity/activityfile.h"
#include "check/activity/blockinput.h"

namespace Check {

/// Reads the definitions of a VCD file. Throws ActivityError.
void readVcdDefinitions(QIODevice *device, ActivityFile *file);

/// Finds the first and the last time stamp behind the definitions. Throws ActivityError.
void readVcdSpan(QIODevice *device, ActivityFile *file);

/// Reads a SAIF file. Throws ActivityError.
void readSaif(QIODevice *device, bool counts, ActivityFile *file);

} // namespace Check
