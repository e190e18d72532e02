#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>

#include <memory>

namespace NlsData {
class Instance;
class Net;
class Netlist;
class Port;
} // namespace NlsData

namespace Check {

class DesignNames;

/// The design that configurations are checked against. What is missing is left out: rules that need
/// it do not apply.
struct DesignInput
{
    QString device;      ///< identifier in the device catalogue; empty when none is known
    QString netlistPath; ///< as given; empty when none is known
    std::shared_ptr<const NlsData::Netlist>
        netlist;                              ///< null when there is none or it is unreadable
    std::shared_ptr<const DesignNames> names; ///< all names of the netlist; null without it
    QByteArray netlistSha256;                 ///< of the bytes that were read, in hexadecimal
    QString netlistError;                     ///< why it could not be read; empty otherwise
};

/// What a name means in a netlist. One name may belong to objects of several kinds.
struct NamedObjects
{
    NlsData::Port *port = nullptr;
    NlsData::Instance *instance = nullptr;
    NlsData::Net *net = nullptr;

    bool isEmpty() const { return !port && !instance && !net; }
};

/// The objects of a netlist that have one of a set of names.
class NameIndex
{
public:
    /// Looks every name of `names` up, in one pass over the netlist.
    NameIndex(const NlsData::Netlist &netlist, const QSet<QString> &names);

    NamedObjects find(const QString &name) const { return m_objects.value(name); }

private:
    QHash<QString, NamedObjects> m_objects;
};

} // namespace Check
