#pragma once

#include "check/names/pathtable.h"
#include "host/nlsdata/netnames.h"

#include "nlsdata/netlist.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <functional>
#include <mutex>
#include <optional>

namespace Check {

enum class ObjectKind { Net, Port, Memory, FlipFlop, Instance };

/// The kind of object that records of a section name. `section` is the name of their element; one
/// whose names are not checked has none.
bool kindOfSection(const QString &section, ObjectKind *kind);

/// "net", "port", "block SRAM", "flip-flop" or "instance".
QString kindName(ObjectKind kind);

/// An object of a netlist. Only the pointer of its kind is set; none when there is no such object.
struct DesignObject
{
    NlsData::Net *net = nullptr;
    NlsData::Port *port = nullptr;
    NlsData::Instance *instance = nullptr;

    explicit operator bool() const { return net || port || instance; }
    bool operator==(const DesignObject &other) const
    {
        return net == other.net && port == other.port && instance == other.instance;
    }
    QString path() const;
};

/// What tells an object from others across runs of synthesis.
struct Meaning
{
    QString type;      ///< cell type; empty for ports and nets
    QStringList names; ///< public names of the net that it drives; of an instance its module
    QString source;    ///< where in the sources it is from; empty when the netlist does not say

    bool operator==(const Meaning &other) const
    {
        return type == other.type && names == other.names && source == other.source;
    }
};

/// Spelling that does not count: "." is "/", a "\" in front of a name and a blank before "[" are
/// left out.
QString plainSpelling(const QString &name);

/// Finds objects by what they are called and by what they drive. For a netlist that was read with
/// all names, which is borrowed. Calls from several threads at once are safe.
class DesignNames
{
public:
    static constexpr int MAXIMUM_NAMES = 16;

    explicit DesignNames(const NlsData::Netlist &netlist);

    const NlsData::NetNames &nets() const { return m_nets; }
    QString design() const; ///< name of the top module

    /// The object of that kind that is called exactly so.
    DesignObject find(ObjectKind kind, const QString &name) const;

    /// The objects whose plain spelling is one of `spellings`, by spelling.
    QMultiHash<QString, DesignObject> findSpelled(ObjectKind kind,
                                                  const QSet<QString> &spellings) const;

    /// The nets that have a public name with one of these plain spellings, by spelling.
    QMultiHash<QString, NlsData::Net *> findSpelledNets(const QSet<QString> &spellings) const;

    /// Calls `use` with every object of a kind.
    void forEach(ObjectKind kind, const std::function<void(const DesignObject &)> &use) const;

    /// What drives the net, or is it, of that kind.
    QVector<DesignObject> objectsOf(ObjectKind kind, NlsData::Net *net) const;

    /// Instances of a module.
    QVector<DesignObject> instancesOf(const QString &module) const;

    /// All names by which the object can be known again.
    QSet<QString> identity(ObjectKind kind, const DesignObject &object) const;

    /// The same to be kept: at most MAXIMUM_NAMES, from high up first, always the same.
    Meaning meaning(ObjectKind kind, const DesignObject &object) const;

private:
    const NlsData::Netlist &m_netlist;
    const NlsData::NetNames m_nets;
    QMultiHash<const NlsData::Net *, NlsData::Port *> m_ports;
    QHash<QString, NlsData::Port *> m_portsByName;
    mutable std::once_flag m_instancesFound;
    mutable std::optional<PathTable<NlsData::Instance>>
        m_instances; ///< filled when first asked for
    mutable std::once_flag m_modulesFound;
    mutable QMultiHash<QString, NlsData::Instance *> m_modules; ///< filled when first asked for
};

} // namespace Check
