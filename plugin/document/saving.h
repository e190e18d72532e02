#pragma once

class QByteArray;
class QString;
class QWidget;

namespace VLT {

// Messages have `view` as their parent. They run the event loop, in which it may be destroyed.

/// Replaces the file at `path` by `bytes`; false when that failed, which the user has been told.
bool saveBytes(const QString &path, const QByteArray &bytes, QWidget *view);

/// Tells that the file at `path` is not saved because it cannot hold `text`.
void reportUnwritableText(const QString &path, const QString &text, QWidget *view);

} // namespace VLT
