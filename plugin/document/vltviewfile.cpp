// Loading and saving of the view's file.

#include "document/vltview.h"

#include "conditions/vltcommonwidget.h"
#include "config/configurationfile.h"
#include "config/safewrite.h"
#include "document/vltenablesetwidget.h"
#include "document/vltratewidget.h"
#include "tables/doubledelegate.h"
#include "widgets/plainmessage.h"
#include "widgets/waitcursor.h"

#include <QAbstractItemDelegate>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QDir>
#include <QDomDocument>
#include <QFile>

#include <algorithm>

namespace VLT {

namespace {

/// Whether what the pages have written is what the library makes of it, too. Every save of a debug
/// build asks.
[[maybe_unused]] bool isReadAlike(const QByteArray &saved, const Configuration &pages)
{
    ReadReport report;
    const Configuration read = readConfiguration(saved, &report);
    QByteArray bytes;
    QString offender;
    return writeConfiguration(read, &bytes, &offender) && bytes == saved &&
           writeConfiguration(pages, &bytes, &offender) && bytes == saved;
}

} // namespace

bool VLTView::readCfgFile(const QString &path)
{
    m_file = path;
    const WaitCursor wait;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QByteArray bytes = file.readAll();
    file.close();
    QDomDocument document;
    const VlrContent content = parseFile(bytes, &document);
    if (content == VlrContent::Invalid)
        return false;
    if (content == VlrContent::NoRoot) {
        setModified(true);
        // Wired all the same: voltages edited after the first save mark the document again.
        m_settingPage->connectVlotageDoubleSpin();
        return true;
    }
    // Not kept any longer than needed; freed after the tree, a large text would make the allocator
    // sweep all of the tree's nodes before the view can show.
    bytes.clear();
    QDomElement root = document.documentElement();
    for (Page *page : pages())
        page->readData(&root);
    m_file = path;
    setModified(false);
    setTitle();
    m_settingPage->connectVlotageDoubleSpin();
    m_settingPage->checkVoltageRange();
    return true;
}

QVector<Page *> VLTView::pages() const
{
    return {m_settingPage, m_ratePage, m_enablePage};
}

Configuration VLTView::configuration() const
{
    Configuration configuration;
    for (const Page *page : pages())
        page->collect(&configuration);
    return configuration;
}

bool VLTView::writeToFile()
{
    if (m_file.isEmpty())
        return false;
    commitEdits();
    // The checks and messages run event loops, in which the view may be destroyed.
    QPointer<VLTView> self(this);
    if (!m_settingPage->checkData() || !self)
        return false;
    if (!m_ratePage->checkData() || !self)
        return false;
    QByteArray bytes;
    if (!composeText(&bytes) || !writeText(bytes))
        return false;
    setModified(false);
    return true;
}

bool VLTView::composeText(QByteArray *bytes)
{
    const auto writeSections = [this](QXmlStreamWriter *writer) {
        for (const Page *page : pages())
            page->writeData(writer);
    };
    QString offender;
    {
        const WaitCursor wait;
        if (composeFile(writeSections, bytes)) {
            Q_ASSERT(isReadAlike(*bytes, configuration()));
            return true;
        }
        offender = unwritableText(configuration()).value_or(QString());
    }
    showMessage(QMessageBox::Warning, this, tr("Warning"),
                tr("Cannot write the config file '%1'!\nThe text '%2' has a character that such a "
                   "file cannot hold.")
                    .arg(QDir::toNativeSeparators(m_file), offender));
    return false;
}

bool VLTView::writeText(const QByteArray &bytes)
{
    const WriteResult result = [&] {
        const WaitCursor wait;
        return replaceFile(m_file, bytes);
    }();
    if (result.isWritten())
        return true;
    const QString problem = result.outcome == WriteResult::CannotOpen
                                ? tr("Cannot open the config file '%1'!")
                                : tr("Cannot write the config file '%1'!");
    QString state = tr("The file is as it was.");
    if (result.outcome == WriteResult::CannotRestore)
        state = tr("Its old contents could not be put back either: the file is damaged. Keep this "
                   "view open, remove the cause and save again.");
    QMessageBox *box = newMessage(QMessageBox::Warning, this, tr("Warning"),
                                  problem.arg(QDir::toNativeSeparators(m_file)));
    setDetail(box, result.cause + QLatin1Char('\n') + state);
    runMessage(box);
    return false;
}

void VLTView::commitEdits()
{
    const auto tables = findChildren<QAbstractItemView *>();
    for (QAbstractItemView *table : tables) {
        QAbstractItemDelegate *delegate = table->itemDelegate();
        if (!delegate)
            continue;
        // The table takes an editor of any of its delegates, and leaves other widgets alone.
        const auto editors =
            table->viewport()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *editor : editors) {
            emit delegate->commitData(editor);
            emit delegate->closeEditor(editor, QAbstractItemDelegate::NoHint);
        }
    }
    // After the cells, whose delegate takes an emptied editor for a cleared value: interpreting it
    // would bring the old one back.
    const auto spinBoxes = findChildren<QAbstractSpinBox *>();
    for (QAbstractSpinBox *spinBox : spinBoxes)
        spinBox->interpretText();
}

bool VLTView::hasPendingEdits() const
{
    const auto delegates = findChildren<DoubleEditorDelegate *>();
    return std::any_of(delegates.begin(), delegates.end(),
                       [](const auto *delegate) { return delegate->hasPendingEdit(); });
}

} // namespace VLT
