#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class QDomDocument;
class QXmlStreamWriter;

namespace VLT {

/// What the bytes of a file turn out to be.
enum class VlrContent {
    Invalid, ///< not well formed, nested too deep, with entities, or of another document type
    NoRoot,  ///< the declarations alone, with nothing but white space, comments and instructions
    Document ///< a root element that can be handed to the DOM
};

/// Looks the file through before a DOM is built of it: freeing a very deep tree overflows the
/// stack, and entities may expand to any size. The DOM parser may still refuse a name that this
/// accepts.
VlrContent inspectFile(const QByteArray &bytes);

/// Looks the file through and builds its DOM when it has a root element. When the parser refuses
/// it, `error` and `line`, if given, are the cause; otherwise they are left as they are.
VlrContent parseFile(const QByteArray &bytes, QDomDocument *document, QString *error = nullptr,
                     int *line = nullptr);

/// Composes a file: the envelope with what `writeSections` writes into its root element. False
/// when a text has a character that XML forbids; unwritableText() finds it.
bool composeFile(const std::function<void(QXmlStreamWriter *)> &writeSections, QByteArray *bytes);

/// A new file: the envelope with an empty root element.
QByteArray emptyFile();

} // namespace VLT
