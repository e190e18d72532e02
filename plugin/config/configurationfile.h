#pragma once

#include "config/configuration.h"
#include "config/vlrfile.h"

#include <QHash>

namespace VLT {

/// Something in a file that opening it in the editor passes over or changes.
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

/// Where things are in a file, as lines from 1. Each vector is parallel to the records of the
/// section of the same name.
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

/// What reading a file finds beside the configuration.
struct ReadReport
{
    VlrContent content = VlrContent::Invalid;
    QString error;     ///< why the file was refused; empty when it was read
    int errorLine = 0; ///< from 1; 0 when the cause has no line
    FileLines lines;
    QVector<FileRemark> remarks; ///< in the order of the file

    bool isRead() const { return content != VlrContent::Invalid; }
};

/// The configuration that a file's `bytes` hold. It takes what the editor opens and refuses what
/// the editor refuses; the configuration of a refused file is empty.
Configuration readConfiguration(const QByteArray &bytes, ReadReport *report);

/// Composes the file of `configuration`. Of a file that the editor has saved it makes the same
/// bytes. False when a text has a character that XML forbids; `offender` is then that text, without
/// such characters.
bool writeConfiguration(const Configuration &configuration, QByteArray *bytes, QString *offender);

/// The first text that a file cannot hold, in the file's order and without the characters that XML
/// forbids.
std::optional<QString> unwritableText(const Configuration &configuration);

} // namespace VLT
