#pragma once

#include "check/names/designnames.h"

#include <QByteArray>
#include <QMap>

namespace VLT {
struct Configuration;
} // namespace VLT

namespace Check {

/// A name that a configuration gives an object by. Records of a section that are spelled alike are
/// one.
struct NamedRecord
{
    QString section; ///< name of the record's element
    QString name;

    bool operator<(const NamedRecord &other) const
    {
        return section != other.section ? section < other.section : name < other.name;
    }
    bool operator==(const NamedRecord &other) const
    {
        return section == other.section && name == other.name;
    }
};

inline uint qHash(const NamedRecord &record, uint seed = 0)
{
    return ::qHash(record.section, seed) ^ ::qHash(record.name, seed);
}

/// What the names of a configuration meant when it was saved. Kept beside it in a file made for
/// version control: JSON with one record per line, sorted.
class NameMemory
{
public:
    /// The file beside the configuration at `path`.
    static QString fileFor(const QString &path);

    /// Reads the content of such a file. False with a sentence in `error` when it is none, or of a
    /// later version.
    bool parse(const QByteArray &json, QString *error);
    QByteArray toJson() const;

    /// Reads the memory of the configuration at `path`. A file that does not exist is an empty
    /// memory; false with a sentence in `error` when there is one that cannot be read.
    bool read(const QString &path, QString *error);

    bool isEmpty() const { return m_records.isEmpty(); }

    /// What a record meant; null when that is not known. Valid until the memory changes.
    const Meaning *find(const NamedRecord &record) const;

    /// SHA-256 of the netlist that the memory was last brought up to date with, in hexadecimal.
    QByteArray netlist;

    /// Brings the memory up to date with a configuration that was saved: what is new, or still
    /// means the same, is taken from the netlist; a name that means something else keeps what it
    /// meant, unless it is one of `decided`.
    void update(const VLT::Configuration &configuration, const DesignNames &design,
                const QSet<NamedRecord> &decided = {});

private:
    QMap<NamedRecord, Meaning> m_records;
};

} // namespace Check
