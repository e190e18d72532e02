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
    void open(const DEV::DeviceArg &device, const QString &path) override;
    void close(const QString &path) override;
    Core::IView *view(const QString &path) const override;
    QStringList openFiles() const override;
    bool isModified(const QString &path) const override;
    void discardChanges(const QString &path) override;

private:
    static VLT::VLTView *find(const QString &path);
};
