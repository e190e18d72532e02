#pragma once

#include "hostexport.h"

#include <QIcon>
#include <QObject>
#include <QString>

class QWidget;

namespace Core {

/// A wizard of the environment's File > New menu. Published through
/// ExtSys::IPlugin::addAutoReleasedObject().
class HOST_EXPORT IWizardFactory : public QObject
{
    Q_OBJECT

public:
    IWizardFactory();
    ~IWizardFactory() override;

    /// Unique name, for example "MC.Wizard.VLT".
    virtual QString id() const = 0;
    virtual QString displayName() const = 0;
    virtual QString description() const = 0;

    /// Icon of the menu entry; a null icon unless overridden.
    virtual QIcon icon() const;

    /// Runs the wizard modally on `parent`; `path` is the initial folder and may be empty.
    virtual void runWizard(QWidget *parent, const QString &path) = 0;
};

} // namespace Core
