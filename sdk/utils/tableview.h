#pragma once

#include "hostexport.h"

#include <QTableView>

namespace Utils {

/// The environment's table: a QTableView with copy, paste, fill down and type-ahead. It changes
/// cells only through the table's delegate and the flags of the items.
class HOST_EXPORT TableView : public QTableView
{
    Q_OBJECT

public:
    explicit TableView(QWidget *parent = nullptr);
    ~TableView() override;
};

} // namespace Utils
