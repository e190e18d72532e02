#pragma once

#include "core/ifilewizardfactory.h"

namespace VLT {

constexpr char ID_VLT_WIZARD[] = "MC.Wizard.VLT";

/// Offers the new configuration file in the environment's menu of new files.
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
