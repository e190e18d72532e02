#pragma once

#include <QByteArray>
#include <QHash>
#include <QPair>
#include <QString>

#include <memory>

namespace NlsData {
class Netlist;
} // namespace NlsData

namespace Check {

class DesignNames;

/// Scopes that were found for activity files: by the file's document path and the path of the
/// instance, which is empty for the design.
using KnownScopes = QHash<QPair<QString, QString>, QString>;

/// The design that configurations are checked against. What is missing is left out: rules that need
/// it do not apply.
struct DesignInput
{
    QString device;      ///< identifier in the device catalogue; empty when none is known
    QString netlistPath; ///< as given; empty when none is known
    /// Read with all names; null when there is none or it is unreadable.
    std::shared_ptr<const NlsData::Netlist> netlist;
    std::shared_ptr<const DesignNames> names; ///< of the netlist; null without it
    QByteArray netlistSha256;                 ///< of the bytes that were read, in hexadecimal
    QString netlistError;                     ///< why it could not be read; empty otherwise
    KnownScopes scopes;                       ///< that were found for activity files before
};

} // namespace Check
