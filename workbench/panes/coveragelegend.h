#pragma once

#include "check/activity/coverage.h"

#include <QWidget>

namespace Workbench {

/// Tells which color stands for which source of rates, with the nets of an instance.
class CoverageLegend : public QWidget
{
    Q_OBJECT

public:
    explicit CoverageLegend(QWidget *parent = nullptr);

    /// Null: without numbers.
    void setCounts(const Check::InstanceCoverage *counts);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QStringList m_texts; // as SHOWN_SOURCES
};

} // namespace Workbench
