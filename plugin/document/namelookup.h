#pragma once

#include "tables/markednames.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <atomic>
#include <memory>

namespace VLT {

class Document;

/// Looks up the names that the tables of a view list, once the view is shown: names are gathered in
/// short turns of the event loop, and looked up in the netlist in a thread. Names that are added
/// are looked up alone; a new netlist starts over, and the marks stay until it has been asked.
class NameLookup : public QObject
{
    Q_OBJECT

public:
    /// For the tables that are there below `view`, which owns this object.
    NameLookup(Document *document, QWidget *view);
    ~NameLookup() override;

    /// There is another netlist.
    void startOver();

    /// Waits for the lookups of views that are gone. To be called before the library may be
    /// unloaded: a thread that is not finished runs its code.
    static void finish();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Search;

    void schedule();
    void gather();
    void search();
    void take(const std::shared_ptr<Search> &search);

    Document *const m_document;
    QVector<MarkedNames *> m_tables; // owned by the tables
    std::shared_ptr<const LookedUpNames> m_names;
    std::shared_ptr<Search> m_search; // what is being gathered or looked up
    bool m_isShown = false;
    bool m_isSearching = false;  // in the thread
    QSet<QString> m_designNames; // of all netlists that the view has had
    bool m_isStale = false;      // something was added since the gathering began
    int m_table = 0;             // where the gathering is
    int m_row = 0;
    QTimer m_turn;
};

} // namespace VLT
