#pragma once

#include "core/iwizardfactory.h"

namespace Core {

/// A wizard that creates one file.
class HOST_EXPORT IFileWizardFactory : public IWizardFactory
{
    Q_OBJECT

public:
    IFileWizardFactory();
    ~IFileWizardFactory() override;
};

} // namespace Core
