#pragma once

#include "config/configuration.h"
#include "config/vlrfile.h"

#include <QHash>

namespace VLT {

/// Something in a file that the editor ignores or changes on opening.
struct FileRemark
{
    enum Kind {
        UnknownElement,   ///< ignored, and lost on the next save
        UnknownAttribute, ///< the same
        RepeatedElement,  ///< ignored: the first of its name counts
        MissingAttribute, ///< read as `used`
        NotANumber,       ///< `text` is used as `used`
        OutOfRange,       ///< the same; an empty `used` is a value that counts as not set
        UnknownChoice     ///< the same; an empty `used` leaves the choice as it is
    };

    Kind kind;
    int line;
    QString element;   ///< its name
    QString attribute; ///< empty when it is about the element or the element's text
    QString text;      ///< as in the file
    QString used;      ///< what the editor makes of it; `text` where it keeps that
};

/// Line numbers of a file, from 1. Each vector is parallel to the records of the section of the
/// same name.
struct FileLines
{
    QHash<QString, int> elements; ///< elements that a file has once, by name
    QVector<int> rates;
    QVector<int> files;
    QVector<int> clocks;
    QVector<int> ports;
    QVector<int> bsrams;
    QVector<int> dffs;
};

/// What reading a file reports besides the configuration.
struct ReadReport
{
    VlrContent content = VlrContent::Invalid;
    QString error;     ///< why the file was refused; empty when it was read
    int errorLine = 0; ///< from 1; 0 when the cause has no line
    FileLines lines;
    QVector<FileRemark> remarks; ///< in the order of the file

    bool isRead() const { return content != VlrContent::Invalid; }
};

/// Reads the configuration in a file's `bytes`. Accepts and refuses the same files as the editor;
/// for a refused file the result is empty.
Configuration readConfiguration(const QByteArray &bytes, ReadReport *report);

/// Composes the file of `configuration`; a file saved by the editor is reproduced byte for byte.
/// False if a text has a character that XML forbids; `offender` is then that text without such
/// characters.
bool writeConfiguration(const Configuration &configuration, QByteArray *bytes, QString *offender);

/// A text that cannot be written to a file, without the characters that XML forbids; none if it can
/// be written.
std::optional<QString> unwritableText(const QString &text);

/// The same of the first such text, in the file's order.
std::optional<QString> unwritableText(const Configuration &configuration);

} // namespace VLT
