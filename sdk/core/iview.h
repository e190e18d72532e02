#pragma once

#include "hostexport.h"

#include <QString>
#include <QWidget>

namespace Core {

/// Base class of the views that the view manager shows in its tabs.
class HOST_EXPORT IView : public QWidget
{
    Q_OBJECT

public:
    explicit IView(QWidget *parent = nullptr);
    ~IView() override;

    /// Text of the view's tab.
    QString shortTitle() const;
    void setShortTitle(const QString &title);

    /// Called after the view has become the active one, and after it has ceased to be.
    virtual void onActivated();
    virtual void onDeactivated();

signals:
    void shortTitleChanged(const QString &title);

private:
    QString m_shortTitle;
};

} // namespace Core
