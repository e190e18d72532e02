#pragma once

#include "tables/page.h"

#include <QWidget>

#include <memory>

class QRadioButton;

namespace VLT {

namespace Ui {
class NetRateEditor;
}

class Document;
class RateTableView;
enum class RateUnit;
class VLTView;

/// Toggle rates of nets, with their section of the file. The table of ports is built and checked
/// like that of the nets, but is hidden and not saved.
class RateWidget : public QWidget, public Page
{
    Q_OBJECT

public:
    RateWidget(VLTView *view, QWidget *parent);
    ~RateWidget() override;

    void readData(QDomElement *parent) override;
    void writeData(QXmlStreamWriter *writer) const override;
    void collect(Configuration *configuration) const override;

    /// Informs the user of the first rate without a value and returns false if there is one.
    bool checkData() override;

public slots:
    void modified() override;
    void onVectorlessChanged(bool vectorless);
    void onNetRateUnitChanged();
    void onIORateUnitChanged();

private:
    RateUnit unit() const;
    bool checkValues(RateTableView *table, const QString &text);
    void changeUnit(RateTableView *table, QRadioButton *toggle, QRadioButton *signal);

    Document *const m_document;
    const std::unique_ptr<Ui::NetRateEditor> m_ui;
};

} // namespace VLT
