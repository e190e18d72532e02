#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Check {

/// A change of one record of a configuration file.
struct RecordEdit
{
    QString section; ///< name of the record's element
    int ordinal = 0; ///< among the records of the section, from 1
    QString from;    ///< the name that the record has
    QString to;      ///< the name that it gets
    bool remove = false;
    QByteArray spelling = {}; ///< bytes of the new name in the file; empty: the usual ones
};

/// Changes the file that `bytes` are. Of a renamed record only the letters that differ are
/// replaced; the element of a removed record goes, with its line when it is alone there. Every
/// other byte stays, in whatever encoding the file is. `inverse` (when given) receives the edits
/// that make the same bytes again, if none removes. False with a sentence in `error` when the file
/// does not have these records, or when the result would not read as intended.
bool editRecords(const QByteArray &bytes, const QVector<RecordEdit> &edits, QByteArray *result,
                 QVector<RecordEdit> *inverse, QString *error);

} // namespace Check
