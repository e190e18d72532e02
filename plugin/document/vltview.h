#pragma once

#include "config/vltexport.h"
#include "tables/document.h"

#include "core/iview.h"
#include "dev/devicearg.h"
#include "qutil/ieventhandler.h"

#include <QPointer>
#include <QString>
#include <QVector>

#include <memory>

class QMessageBox;
class QTabWidget;
class QVBoxLayout;

namespace NlsData {
class Netlist;
}

namespace VLT {

struct Configuration;
class NameLookup;
class NetlistReload;
class Page;
class VLTEnableSetWidget;
class VLTRateWidget;
class VLTSettingWidget;

namespace Ui {
class ChangedBanner;
}

/// The open document: a configuration file with its pages, and the netlist from which objects are
/// picked. Created by the view manager, owned by the environment once shown.
class VLTView : public Core::IView, public QUtil::IEventHandler, public Document
{
    Q_OBJECT

public:
    /// Takes ownership of `netlist`.
    VLTView(DEV::DeviceArg device, NlsData::Netlist *netlist);
    ~VLTView() override;

    void setDevice(DEV::DeviceArg device);
    QString file() const { return m_file; }
    bool isModified() const { return m_modified || m_fileMissing; }
    VLT_EXPORT void setModified(bool modified) override;

    /// Sets whether another program has removed the file. The view then has the only copy and
    /// counts as modified until it is saved or the file is restored.
    VLT_EXPORT void setFileMissing(bool missing);

    /// Shows the file's name, with "*" when modified, as window title and tab text.
    void setTitle();

    NlsData::Netlist *getNetlist() const override { return m_netlist.get(); }
    std::shared_ptr<NlsData::Netlist> holdNetlist() const override { return m_netlist; }
    void closeWithoutQuestion() override;

    /// Fetches the supply data of the current chip and shows its supplies; false if there is none.
    bool getVoltageInfo();

    /// Loads the file at `path`; false if it cannot be read or is not a configuration file.
    bool readCfgFile(const QString &path);

    /// Validates and saves; on refusal or failure informs the user and returns false.
    VLT_EXPORT bool writeToFile();
    bool save() { return writeToFile(); }

    /// Commits what the user has typed but not confirmed in cells and spin boxes.
    void commitEdits();

    /// Whether the text in the open editor of a cell has been changed.
    bool hasPendingEdits() const;

    /// Selects a record and scrolls to it: the `occurrence`-th, from 1, of those called `name` in
    /// the table of the elements `section`. Without a name, or for an element that no table lists,
    /// the tab with the element is shown. False when the table does not list the record.
    VLT_EXPORT bool showRecord(const QString &section, const QString &name, int occurrence);

    /// Adds nets without a rate to the net rates, as if the user had picked them: those that the
    /// netlist has and that are not listed yet. Shows them, and returns their number.
    VLT_EXPORT int addNetRates(const QStringList &paths);

    /// The top-level pages, in the file's order; owned by the view.
    QVector<Page *> pages() const;

    /// The configuration that saving would write.
    Configuration configuration() const;

    void showChangedBanner();

    /// Announces that the view is about to be closed without saving: open editors are not
    /// committed, and an open close question is withdrawn. Lasts until the event loop runs, so that
    /// a view whose host refuses to close it works as before.
    VLT_EXPORT void abandonEdits();

    void handleIEvent(const QUtil::IEvent *event) override;

signals:
    void modificationStatusChanged(bool b);

    /// `hasPendingEdits()` may have changed.
    void pendingEditsChanged();

    /// For the view manager: the file's view is to be closed. It may be gone afterwards.
    void closeRequested(const QString &file);

protected:
    void closeEvent(QCloseEvent *event) override;

private slots:
    void onOkBtn();
    void onNetlistChanged();

private:
    enum class Closing {
        No,
        Asking,    // the user, whether to save
        Abandoned, // open editors are not committed any more
        Done,      // agreed to; the view only waits to be deleted
    };

    bool composeText(QByteArray *bytes);
    void takeNetlist(const std::shared_ptr<NlsData::Netlist> &netlist);
    void closeWithoutNetlist();
    /// Whether a modified view may close: asks, and saves when told so. Runs the event loop.
    bool mayClose();
    void announceModified(bool before);

    bool m_modified = false; // by edits
    bool m_fileMissing = false;
    QString m_file;
    VLTSettingWidget *m_settingPage = nullptr;
    VLTRateWidget *m_ratePage = nullptr;
    VLTEnableSetWidget *m_enablePage = nullptr;
    QTabWidget *m_tabs = nullptr;
    QVBoxLayout *m_layout = nullptr;
    QWidget *m_banner = nullptr;
    NameLookup *m_nameLookup = nullptr;
    std::shared_ptr<NlsData::Netlist> m_netlist;

    std::unique_ptr<Ui::ChangedBanner> m_bannerForm;
    NetlistReload *m_reload = nullptr;
    QPointer<QMessageBox> m_question; // whether to save before closing
    Closing m_closing = Closing::No;
};

} // namespace VLT
