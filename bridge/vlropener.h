#pragma once

#include "host/core/ifileopener.h"

namespace VLT {
class VLTView;
}

/// Opens ".vlr" files through the plug-in's view manager.
class VlrOpener : public Core::IFileOpener
{
    Q_OBJECT

public:
    QStringList suffixes() const override;
    Core::IView *open(const DEV::DeviceArg &device, const QString &path) override;
    void reload(const DEV::DeviceArg &device, const QString &path) override;
    void close(const QString &path) override;
    Core::IView *view(const QString &path) const override;
    QString filePath(const Core::IView *view) const override;
    bool isModified(const QString &path) const override;
    void setFileMissing(const QString &path, bool missing) override;
    bool showRecord(const QString &path, const QString &section, const QString &name,
                    int occurrence) override;
    int addNetRates(const QString &path, const QStringList &nets) override;
    bool save(const QString &path) override;

private:
    static VLT::VLTView *find(const QString &path);
};
