#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

class QTextCodec;

namespace Check {

/// Where something is in a file, in bytes.
struct Span
{
    int begin = 0;
    int end = 0;
};

/// A record's element as the file has it.
struct ScannedRecord
{
    QString section; ///< name of the element
    Span element;    ///< from its "<" to behind its last ">"
    Span name;       ///< between the quotes of the attribute with the object's path
    bool hasName = false;
};

/// Finds the records of a configuration file in its bytes. The file must have passed the
/// look-through: what is not well formed is not found here.
class RecordScanner
{
public:
    /// `bytes` are borrowed.
    explicit RecordScanner(const QByteArray &bytes);

    /// Whether the encoding can be changed piece by piece.
    bool isSupported() const { return m_codec != nullptr; }

    /// All records, in the order of the file. Of a section that is there twice, the first counts.
    QVector<ScannedRecord> records() const;

    /// The text of a part of the file, with its references resolved.
    QString text(const Span &span) const;

    /// Bytes of `text` for an attribute; what the encoding lacks becomes a reference.
    QByteArray spelled(const QString &text) const;

    /// The element's line, when nothing else is on it; else the element.
    Span withLine(const Span &element) const;

    /// The characters of a part of the file, each with all its bytes, references whole.
    QVector<Span> characters(const Span &span) const;

private:
    void findEncoding();
    Span bytesOf(int begin, int end) const
    {
        return {m_offset + begin * m_width, m_offset + end * m_width};
    }

    const QByteArray &m_bytes;
    QTextCodec *m_codec = nullptr;
    QString m_text;   // the markup, one unit per byte, or two bytes
    int m_offset = 0; // of the first unit
    int m_width = 1;
};

} // namespace Check
