#include "tables/tablemodel.h"

#include "document/vltview.h"

namespace VLT {

TableModel::TableModel(VLTView *view, QObject *parent)
    : QAbstractTableModel(parent)
    , m_view(view)
{
}

void TableModel::reload()
{
    beginResetModel();
    endResetModel();
}

void TableModel::markModified()
{
    if (m_view)
        m_view->setModified(true);
}

} // namespace VLT
