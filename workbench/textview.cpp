#include "workbench/textview.h"

#include "host/utils/documentpath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QVBoxLayout>

#include <algorithm>

namespace Workbench {

namespace {

// Netlists and traces can have gigabytes: only the beginning is shown.
constexpr qint64 MAXIMUM_BYTES = 4 * 1024 * 1024;

} // namespace

TextView::TextView(const QString &path)
    : m_path(Utils::documentPath(path))
    , m_text(new QPlainTextEdit(this))
{
    setShortTitle(QFileInfo(path).fileName());
    setWindowTitle(shortTitle());
    m_text->setReadOnly(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    setFocusProxy(m_text);
}

bool TextView::load(QString *error)
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error =
            tr("Cannot read %1: %2.").arg(QDir::toNativeSeparators(m_path), file.errorString());
        return false;
    }
    QString text = QString::fromUtf8(file.read(MAXIMUM_BYTES));
    if (!file.atEnd())
        text += tr("\n\n[Truncated: only the first 4 MiB are shown.]\n");
    m_text->setPlainText(text);
    return true;
}

void TextView::showLine(int line)
{
    const int last = m_text->document()->blockCount() - 1;
    QTextCursor cursor(m_text->document()->findBlockByNumber(std::clamp(line - 1, 0, last)));
    QTextEdit::ExtraSelection mark;
    mark.cursor = cursor;
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    mark.format.setBackground(palette().alternateBase());
    m_text->setExtraSelections({mark});
    m_text->setTextCursor(cursor);
    m_text->centerCursor();
    m_text->setFocus();
}

} // namespace Workbench
