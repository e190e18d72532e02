#pragma once

#include <QDialog>

#include <memory>

namespace VLT {

namespace Ui {
class NewFileDialog;
}

/// Asks for the name and the folder of a new configuration file and creates it.
class NewFileDialog : public QDialog
{
    Q_OBJECT

public:
    /// `path` is the folder to start in; the user's home when it is empty.
    NewFileDialog(const QString &path, QWidget *parent);
    ~NewFileDialog() override;

    /// The path of the file to create, as typed and with the suffix, not cleaned.
    QString filePath() const;

public slots:
    void onBrowse();

    /// Creates the file; what is wrong is told and leaves the dialog open.
    void accept() override;

private:
    /// Why the file cannot be created at `target`, or nothing. Makes the missing folders.
    QString problem(const QString &target) const;
    bool createFile(const QString &target);

    const std::unique_ptr<Ui::NewFileDialog> m_ui;
};

} // namespace VLT
