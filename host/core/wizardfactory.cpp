#include "core/ifilewizardfactory.h"

namespace Core {

IWizardFactory::IWizardFactory() = default;

IWizardFactory::~IWizardFactory() = default;

QIcon IWizardFactory::icon() const
{
    return QIcon();
}

IFileWizardFactory::IFileWizardFactory() = default;

IFileWizardFactory::~IFileWizardFactory() = default;

} // namespace Core
