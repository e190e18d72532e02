#pragma once

#include <QString>

class QFontMetrics;

namespace VLT {

/// A path that is wider than `width` pixels, with an ellipsis in front of its last part, which
/// tells objects apart. A last part that is too wide by itself loses its beginning.
QString elidedPath(const QString &path, const QFontMetrics &metrics, int width);

} // namespace VLT
