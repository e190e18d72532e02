#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

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

/// Composes a file: the envelope with what `writeSections` writes into its root element. False
/// when a text has a character that XML forbids; `offender` is then that text.
bool composeFile(const std::function<void(QXmlStreamWriter *)> &writeSections, QByteArray *bytes,
                 QString *offender);

/// A new file: the envelope with an empty root element.
QByteArray emptyFile();

} // namespace VLT
