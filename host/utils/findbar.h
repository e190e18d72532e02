#pragma once

#include "hostexport.h"

#include <QPointer>
#include <QTableView>
#include <QWidget>

class QLabel;
class QLineEdit;
class QStringMatcher;
class QToolButton;

namespace Utils {

/// Finds rows of a table that show a text in one of their cells, in upper or lower case. Rows that
/// do not are left as they are: a hidden row could be removed without being seen. The bar is hidden
/// until it is opened, and closes with Escape or with its table.
class HOST_EXPORT FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(QWidget *parent = nullptr);

    /// The table to be searched from now on, not owned; null closes the bar.
    void setTable(QTableView *table);
    QTableView *table() const { return m_table; }

    /// Shows the bar and gives it the focus.
    void open();

    /// Go to the next or previous row with the text, around the end of the table; open the bar when
    /// there is no text yet.
    void findNext();
    void findPrevious();

    /// Selects all rows with the text, and gives the focus to the table.
    void selectHits();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolButton *addButton(const char *name, const QString &text, void (FindBar::*command)());
    void close();
    void findWhileTyped();
    void find(int from, int step);
    bool isHit(int row, const QStringMatcher &matcher) const;
    int currentRow() const { return m_table->currentIndex().row(); }
    int currentColumn() const;
    bool hasText();

    QPointer<QTableView> m_table;
    QLabel *m_title;
    QLineEdit *m_text;
    QLabel *m_result;
    int m_start = 0; // row that typing searches from
};

} // namespace Utils
