#pragma once

#include "check/names/namememory.h"
#include "config/configurationfile.h"

#include <QString>

namespace Check {

/// A configuration file as read once: what it holds, where, and of which bytes.
struct ConfigurationInput
{
    QString path; ///< as given
    bool readable = false;
    QString error; ///< why it could not be read; one sentence
    QByteArray bytes;
    QByteArray sha256; ///< in hexadecimal digits
    VLT::Configuration configuration;
    VLT::ReadReport report;
    NameMemory names;   ///< what its names meant when it was recorded; empty when nothing is
    QString namesError; ///< why that could not be read; empty when it could, or is not there

    /// Whether there is a configuration to check.
    bool isUsable() const { return readable && report.isRead(); }
};

/// Reads the file at `path`, which is kept as given.
ConfigurationInput readConfigurationInput(const QString &path);

/// The same for bytes that have been read.
ConfigurationInput configurationInput(const QString &path, const QByteArray &bytes);

} // namespace Check
