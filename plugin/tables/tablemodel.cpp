#include "tables/tablemodel.h"

#include "tables/document.h"

namespace VLT {

TableModel::TableModel(VLTView *view, QObject *parent)
    : QAbstractTableModel(parent)
    , m_document(documentOf(view))
{
}

void TableModel::reload()
{
    beginResetModel();
    endResetModel();
}

void TableModel::markModified()
{
    if (m_document)
        m_document->setModified(true);
}

} // namespace VLT
