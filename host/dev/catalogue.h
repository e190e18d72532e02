#pragma once

#include "host/dev/devicecatalogue.h"

#include <vector>

class QByteArray;

namespace DEV {

/// Reads the text of a catalogue file. On failure returns false, with the cause in `error`: the end
/// of a sentence, as in "the file X: <cause>".
bool parseCatalogue(const QByteArray &text, std::vector<Device> *devices, QString *error);

} // namespace DEV
