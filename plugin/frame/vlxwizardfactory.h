#pragma once

#include "core/ifilewizardfactory.h"

namespace VLT {

constexpr char ID_VLT_WIZARD[] = "MC.Wizard.VLT";

/// Adds the new configuration file to the environment's File > New menu.
class VLXWizardFactory : public Core::IFileWizardFactory
{
    Q_OBJECT

public:
    QString id() const override;
    QString displayName() const override;
    QString description() const override;
    void runWizard(QWidget *parent, const QString &path) override;
};

} // namespace VLT
