#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

class QDomDocument;
class QXmlStreamWriter;

namespace VLT {

/// What a file contains.
enum class VlrContent {
    Invalid, ///< not well formed, nested too deep, with entities, or of another document type
    NoRoot,  ///< the declarations alone, with nothing but white space, comments and instructions
    Document ///< a root element that can be handed to the DOM
};

/// Checks a file before its DOM is built: freeing a very deep tree overflows the stack, and
/// entities may expand to any size. The DOM parser may still refuse a name that this
/// accepts.
VlrContent inspectFile(const QByteArray &bytes);

/// Checks a file and builds its DOM if it has a root element. If the parser refuses it, `error` and
/// `line` (each may be null) receive the cause; otherwise they are not changed.
VlrContent parseFile(const QByteArray &bytes, QDomDocument *document, QString *error = nullptr,
                     int *line = nullptr);

/// Composes a file: the envelope, with the output of `writeSections` in its root element. False if
/// a text has a character that XML forbids; unwritableText() finds it.
bool composeFile(const std::function<void(QXmlStreamWriter *)> &writeSections, QByteArray *bytes);

/// A new file: the envelope with an empty root element.
QByteArray emptyFile();

} // namespace VLT
