#include "workbench/checks/reviewtree.h"

#include "workbench/checks/namecompletion.h"

#include <QCompleter>
#include <QHeaderView>
#include <QLineEdit>
#include <QStyledItemDelegate>

namespace Workbench {

namespace {

enum Role {
    RecordRole = Qt::UserRole, ///< index of the record; none for a group
    TargetRole,                ///< the new name; empty: the record is removed
};

QString meaningText(const QStringList &names)
{
    return names.isEmpty() ? ReviewTree::tr("no net with a name of the design")
                           : names.join(QLatin1String(", "));
}

QString plainToolTip(const QString &text)
{
    return QLatin1String("<p>") + text.toHtmlEscaped() + QLatin1String("</p>");
}

/// Edits the new names and completes them from the netlist.
class TargetDelegate : public QStyledItemDelegate
{
public:
    explicit TargetDelegate(ReviewTree *tree)
        : QStyledItemDelegate(tree)
        , m_tree(tree)
    {
    }

    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        // Styles outline check boxes in a shade of this color: on dark, one that can be seen.
        if (option->palette.color(QPalette::Base).lightness() < 128)
            option->palette.setColor(QPalette::Window, option->palette.color(QPalette::Text));
    }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &,
                          const QModelIndex &index) const override
    {
        const QVariant record = index.siblingAtColumn(ReviewTree::NameColumn).data(RecordRole);
        if (index.column() != ReviewTree::TargetColumn || !record.isValid())
            return nullptr;
        auto *editor = new QLineEdit(parent);
        editor->setFrame(false);
        editor->setPlaceholderText(ReviewTree::tr("empty: remove the record"));
        const auto section = index.siblingAtColumn(ReviewTree::NameColumn).data(Qt::UserRole + 2);
        if (m_tree->completion())
            m_tree->completion()->attach(editor, section.toString());
        return editor;
    }

    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        static_cast<QLineEdit *>(editor)->setText(index.data(TargetRole).toString());
    }

    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override
    {
        const QString text = static_cast<QLineEdit *>(editor)->text().trimmed();
        if (text != index.data(TargetRole).toString())
            model->setData(index, text, TargetRole);
    }

private:
    ReviewTree *const m_tree;
};

} // namespace

ReviewTree::ReviewTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("reviewTree"));
    setAccessibleName(tr("Names"));
    setColumnCount(ColumnCount);
    setHeaderLabels({tr("Name"), tr("New Name"), tr("Certainty"), tr("Why")});
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideMiddle);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    setItemDelegate(new TargetDelegate(this));
    const int character = fontMetrics().averageCharWidth();
    setColumnWidth(NameColumn, character * 42);
    setColumnWidth(TargetColumn, character * 42);
    setColumnWidth(CertaintyColumn, character * 12);
    connect(this, &QTreeWidget::itemChanged, this, &ReviewTree::onItemChanged);
}

void ReviewTree::setReview(const Check::NameReview &review)
{
    m_isFilling = true;
    clear();
    m_records.clear();
    QHash<QPair<QString, QString>, QTreeWidgetItem *> groups; // by section and rule
    for (const Check::ReviewedRecord &record : review.records) {
        if (record.state != Check::NameState::Moved && record.state != Check::NameState::Missing)
            continue;
        m_records.append(record);
        QTreeWidgetItem *&group = groups[{record.section, record.rule}];
        if (record.rule.isEmpty()) {
            addRecord(m_records.size() - 1, nullptr);
            continue;
        }
        if (!group) {
            group = new QTreeWidgetItem(this);
            group->setText(CertaintyColumn, certaintyName(record.certainty));
            group->setCheckState(NameColumn, Qt::Unchecked);
        }
        addRecord(m_records.size() - 1, group);
        group->setText(NameColumn, record.rule);
        const int count = group->childCount();
        group->setText(TargetColumn, count == 1 ? tr("1 name") : tr("%1 names").arg(count));
        group->setText(ReasonColumn, count == 1 ? record.reason
                                                : tr("one replacement explains all %1").arg(count));
        group->setToolTip(NameColumn, plainToolTip(record.rule));
    }
    m_isFilling = false;
    emit editsChanged();
}

QString ReviewTree::shownName(const QString &name)
{
    return name.isEmpty() ? tr("(the design)") : QLatin1Char('"') + name + QLatin1Char('"');
}

QTreeWidgetItem *ReviewTree::addRecord(int index, QTreeWidgetItem *group)
{
    const Check::ReviewedRecord &record = m_records.at(index);
    auto *item = group ? new QTreeWidgetItem(group) : new QTreeWidgetItem(this);
    item->setData(NameColumn, RecordRole, index);
    item->setData(NameColumn, Qt::UserRole + 2, record.section);
    item->setText(NameColumn, record.name.isEmpty() ? shownName(record.name) : record.name);
    // A name that has moved is kept by default; one that is missing can only be removed.
    const bool isMoved = record.state == Check::NameState::Moved;
    item->setData(TargetColumn, TargetRole,
                  record.proposal.isEmpty() && isMoved ? record.name : record.proposal);
    item->setText(CertaintyColumn, certaintyName(record.certainty));
    item->setText(ReasonColumn, record.reason);
    item->setToolTip(ReasonColumn, plainToolTip(record.reason));
    QString meant = kindName(kindOf(record)) + QLatin1String(" \"") + record.name +
                    QLatin1String("\"\n") +
                    (record.meant.isEmpty() ? tr("What it meant was not recorded.")
                                            : tr("It was: %1").arg(meaningText(record.meant)));
    if (isMoved && record.meant.isEmpty() && record.now.isEmpty())
        meant = record.reason; // it is the right object, for another file
    else
        meant += QLatin1Char('\n') + (isMoved ? tr("It is now: %1").arg(meaningText(record.now))
                                              : tr("It is not in the netlist."));
    item->setToolTip(NameColumn,
                     plainToolTip(meant).replace(QLatin1Char('\n'), QLatin1String("<br>")));
    if (!group) {
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        item->setCheckState(NameColumn, record.certainty == Check::Certainty::Sure ? Qt::Checked
                                                                                   : Qt::Unchecked);
    }
    showTarget(item);
    return item;
}

void ReviewTree::showTarget(QTreeWidgetItem *item)
{
    const QString target = item->data(TargetColumn, TargetRole).toString();
    QFont font = this->font();
    font.setItalic(target.isEmpty() || target == record(item)->name);
    item->setFont(TargetColumn, font);
    item->setText(TargetColumn, target.isEmpty()               ? tr("remove the record")
                                : target == record(item)->name ? tr("keep, as what it means now")
                                                               : target);
    item->setToolTip(TargetColumn, plainToolTip(item->text(TargetColumn)));
}

void ReviewTree::onItemChanged(QTreeWidgetItem *item, int column)
{
    if (m_isFilling)
        return;
    m_isFilling = true;
    if (column == TargetColumn && record(item)) {
        // A typed name is a decision.
        item->setCheckState(NameColumn, Qt::Checked);
        item->setText(CertaintyColumn, QString());
        item->setText(ReasonColumn, tr("chosen by you"));
        showTarget(item);
    }
    m_isFilling = false;
    emit editsChanged();
}

const Check::ReviewedRecord *ReviewTree::record(const QTreeWidgetItem *item) const
{
    const QVariant index = item->data(NameColumn, RecordRole);
    return index.isValid() ? &m_records.at(index.toInt()) : nullptr;
}

QVector<Check::RecordEdit> ReviewTree::edits() const
{
    QVector<Check::RecordEdit> edits;
    const auto add = [&](const QTreeWidgetItem *item) {
        const Check::ReviewedRecord *record = this->record(item);
        const QString target = item->data(TargetColumn, TargetRole).toString();
        edits.append({record->section, record->ordinal, record->name, target, target.isEmpty()});
    };
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = topLevelItem(i);
        if (item->checkState(NameColumn) != Qt::Checked)
            continue;
        if (record(item))
            add(item);
        for (int child = 0; child < item->childCount(); ++child)
            add(item->child(child));
    }
    return edits;
}

} // namespace Workbench
