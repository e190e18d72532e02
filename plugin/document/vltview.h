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

/// The open document: a configuration file with its pages and the netlist that they pick objects
/// from. Created by the view manager, owned by the environment once it is shown.
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

    /// Whether another program has removed the file, so that the view holds the only copy and
    /// counts as modified, until it is clean or the file is back as it was.
    VLT_EXPORT void setFileMissing(bool missing);

    /// Shows the file's name, with "*" when modified, as window title and tab text.
    void setTitle();

    NlsData::Netlist *getNetlist() const override { return m_netlist.get(); }
    std::shared_ptr<NlsData::Netlist> holdNetlist() const override { return m_netlist; }
    void closeWithoutQuestion() override;

    /// Asks for the supply data of the current chip and shows its supplies; false without data.
    bool getVoltageInfo();

    /// Loads the file at `path`; false when it cannot be read or is no configuration file.
    bool readCfgFile(const QString &path);

    /// Validates and saves; false when it was refused or failed, which the user has been told.
    VLT_EXPORT bool writeToFile();
    bool save() { return writeToFile(); }

    /// Takes over what the user has typed and not yet confirmed, in cells and in spin boxes.
    void commitEdits();

    /// Whether the open editor of a cell has another text than the one that it opened on.
    bool hasPendingEdits() const;

    /// Selects a record and scrolls to it: the `occurrence`-th, from 1, of those called `name` in
    /// the table of the elements `section`. Without a name, or for an element that no table lists,
    /// the tab with the element is shown. False when the table does not list the record.
    VLT_EXPORT bool showRecord(const QString &section, const QString &name, int occurrence);

    /// The top-level pages, in the file's order; owned by the view.
    QVector<Page *> pages() const;

    /// What saving would write.
    Configuration configuration() const;

    void showChangedBanner();

    /// The view is about to be closed without saving: what stands in open editors is not taken
    /// over any more, and an open close question has nothing left to ask. Holds until the event
    /// loop runs: a host that refuses the close leaves a view like any other.
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
        Abandoned, // what open editors hold does not count any more
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
