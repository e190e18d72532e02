#include "host/utils/findbar.h"

#include "host/utils/celltyper_p.h"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QItemSelection>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStringMatcher>
#include <QToolButton>

namespace Utils {

namespace {

/// What the table lists, as the box around it has it.
QString titleOf(const QWidget *table)
{
    for (const QWidget *widget = table; widget; widget = widget->parentWidget()) {
        const auto *box = qobject_cast<const QGroupBox *>(widget);
        if (box && !box->title().isEmpty())
            return box->title();
    }
    return {};
}

} // namespace

FindBar::FindBar(QWidget *parent)
    : QWidget(parent)
    , m_title(new QLabel)
    , m_text(new QLineEdit)
    , m_result(new QLabel)
{
    setObjectName(QStringLiteral("findBar"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setBuddy(m_text);
    m_text->setObjectName(QStringLiteral("findText"));
    m_result->setObjectName(QStringLiteral("findResult"));
    const int character = fontMetrics().averageCharWidth();
    m_text->setMaximumWidth(character * 60);
    m_result->setMinimumWidth(character * 24);

    auto *layout = new QHBoxLayout(this);
    const int margin = fontMetrics().height() / 4;
    layout->setContentsMargins(2 * margin, margin, 2 * margin, margin);
    layout->addWidget(m_title);
    layout->addWidget(m_text, 1);
    layout->addWidget(addButton("findPrevious", tr("&Previous"), &FindBar::findPrevious));
    layout->addWidget(addButton("findNext", tr("&Next"), &FindBar::findNext));
    layout->addWidget(addButton("selectHits", tr("Select &all hits"), &FindBar::selectHits));
    layout->addWidget(m_result, 1);
    layout->addStretch();
    layout->addWidget(addButton("findClose", tr("Close"), &FindBar::close));
    connect(m_text, &QLineEdit::textEdited, this, &FindBar::findWhileTyped);
    hide();
}

QToolButton *FindBar::addButton(const char *name, const QString &text, void (FindBar::*command)())
{
    auto *button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, command);
    return button;
}

void FindBar::setTable(QTableView *table)
{
    if (table == m_table)
        return;
    if (m_table)
        m_table->removeEventFilter(this);
    m_table = table;
    m_result->clear();
    if (!table) {
        hide();
        return;
    }
    table->installEventFilter(this);
    const QString title = titleOf(table);
    m_title->setText(title.isEmpty() ? tr("Find:") : tr("Find in %1:").arg(title));
}

void FindBar::open()
{
    if (!m_table || !m_table->model())
        return;
    m_start = qMax(0, currentRow());
    m_result->clear();
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void FindBar::close()
{
    if (m_table) // first: hiding would give the focus to some other widget
        m_table->setFocus();
    hide();
}

void FindBar::findWhileTyped()
{
    if (m_text->text().isEmpty())
        m_result->clear();
    else if (m_table)
        find(m_start, 1);
}

void FindBar::findNext()
{
    if (hasText())
        find(currentRow() + 1, 1);
}

void FindBar::findPrevious()
{
    if (hasText())
        find(currentRow() - 1, -1);
}

bool FindBar::hasText()
{
    if (!m_table || !m_table->model())
        return false;
    if (isVisible() && !m_text->text().isEmpty())
        return true;
    open();
    return false;
}

void FindBar::find(int from, int step)
{
    const int rows = m_table->model()->rowCount();
    const QStringMatcher matcher(m_text->text(), Qt::CaseInsensitive);
    for (int i = 0; i < rows; ++i) {
        const int place = from + i * step;
        const int row = (place % rows + rows) % rows;
        if (!isHit(row, matcher))
            continue;
        const QModelIndex hit = m_table->model()->index(row, currentColumn());
        m_table->setCurrentIndex(hit);
        m_table->scrollTo(hit);
        const bool around = row != place;
        m_result->setText(!around    ? QString()
                          : step > 0 ? tr("Continued from the top")
                                     : tr("Continued from the bottom"));
        m_start = row;
        return;
    }
    m_result->setText(tr("Not found"));
}

void FindBar::selectHits()
{
    if (!hasText())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QAbstractItemModel *model = m_table->model();
    const QStringMatcher matcher(m_text->text(), Qt::CaseInsensitive);
    const int rows = model->rowCount();
    const int lastColumn = model->columnCount() - 1;
    QItemSelection selection;
    int hits = 0;
    for (int row = 0; row < rows; ++row) {
        const int first = row;
        while (row < rows && isHit(row, matcher))
            ++row;
        if (row == first)
            continue;
        selection.append({model->index(first, 0), model->index(row - 1, lastColumn)});
        hits += row - first;
    }
    if (hits > 0) {
        const QModelIndex first = model->index(selection.first().top(), currentColumn());
        m_table->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        m_table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
        m_table->scrollTo(first);
        m_table->setFocus();
    }
    m_result->setText(hits == 0   ? tr("Not found")
                      : hits == 1 ? tr("1 row selected")
                                  : tr("%1 rows selected").arg(hits));
    QApplication::restoreOverrideCursor();
}

int FindBar::currentColumn() const
{
    return qMax(0, m_table->currentIndex().column());
}

bool FindBar::isHit(int row, const QStringMatcher &matcher) const
{
    const QAbstractItemModel *model = m_table->model();
    for (int column = 0; column < model->columnCount(); ++column) {
        if (!m_table->isColumnHidden(column) &&
            matcher.indexIn(shownText(m_table, model->index(row, column))) >= 0)
            return true;
    }
    return false;
}

bool FindBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide)
        hide();
    return QWidget::eventFilter(watched, event);
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        close();
    else if (enter && m_text->hasFocus())
        event->modifiers().testFlag(Qt::ShiftModifier) ? findPrevious() : findNext();
    else
        QWidget::keyPressEvent(event);
}

} // namespace Utils
