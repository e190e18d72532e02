#pragma once

#include <QDialog>

#include <memory>

namespace VLT {

namespace Ui {
class NewFileDialog;
}

/// Asks for the name and folder of a new configuration file and creates it.
class NewFileDialog : public QDialog
{
    Q_OBJECT

public:
    /// `path` is the initial folder; empty means the user's home.
    NewFileDialog(const QString &path, QWidget *parent);
    ~NewFileDialog() override;

    /// The path of the file to create, as typed with the extension added, not cleaned.
    QString filePath() const;

public slots:
    void onBrowse();

    /// Creates the file; on an error shows it and stays open.
    void accept() override;

private:
    /// Why the file cannot be created at `target`, or empty. Creates missing folders.
    QString problem(const QString &target) const;
    bool createFile(const QString &target);

    const std::unique_ptr<Ui::NewFileDialog> m_ui;
};

} // namespace VLT
