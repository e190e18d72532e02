#include "workbench/projects/pathfield.h"

#include "host/utils/dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace Workbench {

PathField::PathField(Kind kind, const QString &caption, const QString &button, QWidget *parent)
    : QWidget(parent)
    , m_kind(kind)
    , m_caption(caption)
    , m_line(new QLineEdit)
{
    auto *choose = new QPushButton(button);
    m_button = choose;
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_line, 1);
    layout->addWidget(choose);
    connect(m_line, &QLineEdit::textChanged, this, &PathField::changed);
    connect(choose, &QPushButton::clicked, this, &PathField::choose);
}

QString PathField::text() const
{
    return m_line->text().trimmed();
}

void PathField::setText(const QString &text)
{
    m_line->setText(QDir::toNativeSeparators(text));
}

QString PathField::path() const
{
    QString path = QDir::fromNativeSeparators(text());
    if (path == QLatin1String("~") || path.startsWith(QLatin1String("~/")))
        path.replace(0, 1, QDir::homePath());
    return path.isEmpty() ? path : QDir::cleanPath(QDir(m_base).absoluteFilePath(path));
}

void PathField::setReadOnly(bool readOnly)
{
    m_line->setReadOnly(readOnly);
    m_line->setFocusPolicy(readOnly ? Qt::ClickFocus : Qt::StrongFocus);
    m_line->setFrame(!readOnly);
    QPalette colors = palette();
    if (readOnly)
        colors.setColor(QPalette::Base, colors.color(QPalette::Window));
    m_line->setPalette(colors);
    m_button->setVisible(!readOnly);
}

void PathField::choose()
{
    const bool isFolder = m_kind == Folder;
    Utils::GuardedDialog dialog(new QFileDialog(this, m_caption, isFolder ? path() : m_base));
    dialog->setFileMode(isFolder ? QFileDialog::Directory : QFileDialog::AnyFile);
    if (!isFolder) {
        dialog->setNameFilters({tr("Netlists (*.json)"), tr("All files (*)")});
        dialog->setLabelText(QFileDialog::Accept, tr("Choose"));
    }
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString chosen = dialog->selectedFiles().value(0);
    const QString relative = QDir(m_base).relativeFilePath(chosen);
    const bool below = !isFolder && !relative.startsWith(QLatin1String(".."));
    setText(below ? relative : chosen);
}

} // namespace Workbench
