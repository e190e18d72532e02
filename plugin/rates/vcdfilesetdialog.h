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
    /// Edits `record`, which is not owned, or creates a new one if it is null. Only accept()
    /// changes a record.
    VcdFileSetDialog(VLTView *view, QWidget *parent, VLT_VcdFile *record);
    ~VcdFileSetDialog() override;

    /// The edited record, or the one created on acceptance, which the caller owns; null if there is
    /// none.
    VLT_VcdFile *data() const { return m_record; }

    /// The design's name when the instance was chosen: an instance of that name means the design.
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
