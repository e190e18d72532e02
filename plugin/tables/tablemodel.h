#pragma once

#include <QAbstractTableModel>
#include <QVector>

namespace VLT {

class Document;
class VLTView;

/// What a page needs of its model without knowing the record; see RecordModel.
class TableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Resets the views after records were appended to the list or exchanged.
    void reload();

    /// Removes and deletes the record at `row`; an invalid row is ignored.
    virtual void remove(int row) = 0;

    /// Removes and deletes the records at `rows`, which are ascending and hold each row once.
    virtual void removeRecords(const QVector<int> &rows) = 0;

    /// The document that edits mark as modified; not owned, null for a table without edits.
    void setDocument(Document *document) { m_document = document; }

signals:
    /// Emitted around a sort that reorders rows, which `dataChanged` alone announces: an index
    /// taken before `aboutToSort` may refer to another record after `sorted`.
    void aboutToSort();
    void sorted();

    /// An edit has given a record another name.
    void nameEdited();

protected:
    TableModel(VLTView *view, QObject *parent);

    void markModified();

private:
    Document *m_document;
};

} // namespace VLT
