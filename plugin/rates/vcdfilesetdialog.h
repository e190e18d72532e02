#pragma once

#include <QDialog>

#include <memory>

namespace VLT {

namespace Ui {
class VcdFileSetDialog;
}

class Document;
class VLTView;
struct VLT_VcdFile;

/// Creates the record of a simulation activity file, or edits one in place.
class VcdFileSetDialog : public QDialog
{
    Q_OBJECT

public:
    /// Edits `record`, which it does not own, or makes a new one when it is null. A record is
    /// changed by accept() only.
    VcdFileSetDialog(VLTView *view, QWidget *parent, VLT_VcdFile *record);
    ~VcdFileSetDialog() override;

    /// The record edited, or the one made on acceptance, which is the caller's from then on; null
    /// when there is none.
    VLT_VcdFile *data() const { return m_record; }

    /// Name of the design when the instance was chosen: an instance of that name is the design.
    QString designName() const { return m_designName; }

public slots:
    void onBtnSelectFile();
    void onBtnSelectInstance();
    void onTypeChanged();
    void accept() override;

private:
    void showRecord();
    QString currentDesign() const;
    bool refuse(const QString &text);
    bool checkFile(const QString &path);
    bool checkTimes(const QString &start, const QString &end);

    const std::unique_ptr<Ui::VcdFileSetDialog> m_ui;
    Document *const m_document;
    VLT_VcdFile *m_record;
    QString m_designName;
};

} // namespace VLT
