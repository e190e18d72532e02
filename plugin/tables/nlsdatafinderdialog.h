#pragma once

#include <QDialog>
#include <QVector>

#include <memory>

class QRegExp;

namespace NlsData {
class Instance;
class Netlist;
class Port;
} // namespace NlsData

namespace VLT {

namespace Ui {
class NlsDataFinderDialog;
}

/// Lets the user pick objects of a netlist by a case-insensitive wildcard pattern over their full
/// paths. A long search shows its progress and can be stopped; it runs the event loop.
class NlsDataFinderDialog : public QDialog
{
    Q_OBJECT

public:
    enum FindType : int {
        FindPort = 0,  ///< every port
        FindBsram = 3, ///< block SRAM instances
        FindOBuff = 4, ///< output and bidirectional ports
        FindDff = 5    ///< flip-flop instances
    };

    /// `netlist` is not owned and must outlive the dialog; null lists nothing.
    NlsDataFinderDialog(QWidget *parent, NlsData::Netlist *netlist, FindType type);
    ~NlsDataFinderDialog() override;

    /// Paths of the selected objects. This and the next two follow the order of the selection.
    QStringList getSelected() const;

    /// The selected ports of a FindOBuff dialog; empty in others.
    QList<NlsData::Port *> getBuff() const;

    /// The selected instances of a FindBsram dialog; empty in others.
    QList<NlsData::Instance *> getBsram() const;

    void searchPort(const QRegExp &pattern);
    void searchDff(const QRegExp &pattern);
    void searchBsram(const QRegExp &pattern);
    void searchOBuff(const QRegExp &pattern);

    void done(int result) override;

public slots:
    void onSearch();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    template<class Object, class Filter>
    void search(const QList<Object *> &objects, const QRegExp &pattern, Filter accepts,
                QVector<Object *> *found);
    bool goOn(int done, int total);
    void setSearching(bool searching);
    void listPaths(const QStringList &paths);
    void tellTwinsApart();
    QString originOf(const NlsData::Port *port) const;
    void showState();

    const std::unique_ptr<Ui::NlsDataFinderDialog> m_ui;
    NlsData::Netlist *const m_netlist;
    const FindType m_type;
    // Element i is the object of list row i.
    QVector<NlsData::Port *> m_ports;
    QVector<NlsData::Instance *> m_instances;
    QString m_found; ///< what the search came to
    bool m_stopped = false;
};

} // namespace VLT
