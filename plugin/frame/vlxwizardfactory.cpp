#include "frame/vlxwizardfactory.h"

#include "frame/newfiledialog.h"

namespace VLT {

QString VLXWizardFactory::id() const
{
    return QString::fromLatin1(ID_VLT_WIZARD);
}

QString VLXWizardFactory::displayName() const
{
    return tr("VLR Config File");
}

QString VLXWizardFactory::description() const
{
    return tr("TAVRO Power Analyzer Config File.");
}

void VLXWizardFactory::runWizard(QWidget *parent, const QString &path)
{
    NewFileDialog dialog(path, parent);
    dialog.exec();
}

} // namespace VLT
