#pragma once

class QByteArray;
class QString;
class QWidget;

namespace VLT {

// Messages have `view` as their parent and run the event loop, in which it may be destroyed.

/// Replaces the file at `path` by `bytes`; on failure informs the user and returns false.
bool saveBytes(const QString &path, const QByteArray &bytes, QWidget *view);

/// Informs the user that the file at `path` cannot be saved because of `text`.
void reportUnwritableText(const QString &path, const QString &text, QWidget *view);

} // namespace VLT
