#include "netlistinfo.h"

#include "netlistdata_p.h"
#include "netnames.h"
#include "readnetlist.h"

#include <QCryptographicHash>
#include <QElapsedTimer>

#include <algorithm>
#include <map>
#include <vector>

namespace NlsData {

namespace {

template<typename Key>
QString text(const Key &key)
{
    return QString::number(key);
}

QString text(const QByteArray &key)
{
    return QString::fromUtf8(key);
}

template<typename Key>
QJsonObject toJson(const std::map<Key, int> &counts)
{
    QJsonObject json;
    for (const auto &[key, count] : counts)
        json.insert(text(key), count);
    return json;
}

} // namespace

QJsonObject netlistInfo(const QString &path, QString *error)
{
    QElapsedTimer timer;
    timer.start();
    QByteArray sha256;
    ReadOptions options;
    options.allNames = true;
    options.sha256 = &sha256;
    const std::unique_ptr<Netlist> netlist = readNetlist(path, error, options);
    if (!netlist)
        return {};
    const qint64 elapsed = timer.elapsed();

    const NetlistData &data = NetlistData::of(*netlist);
    std::map<int, int> ports{{0, 0}, {1, 0}, {2, 0}, {3, 0}};
    for (const NetlistData::PortRow &port : data.ports)
        ++ports[port.direction];
    std::map<int, int> categories, primitives;
    std::map<QByteArray, int> unknown;
    int modules = 0;
    for (quint32 i = 0; i < data.instances.size(); ++i) {
        const NetlistData::Kind &kind = data.kind(i);
        ++categories[kind.category];
        ++primitives[kind.primitive];
        if (kind.isModule)
            ++modules;
        else if (!kind.isKnown)
            ++unknown[kind.type];
    }
    const NetNames names(*netlist);
    qint64 nameCount = 0;
    std::vector<QByteArray> lines;
    names.forEachNet([&](Net *net) {
        const NetNames::Names all = names.names(net);
        QByteArrayList line;
        for (const QString &name : all.given + all.fromCells)
            line += name.toUtf8();
        std::sort(line.begin(), line.end());
        nameCount += line.size() + all.generated.size();
        lines.push_back(line.join('\t') + '\n');
    });
    std::sort(lines.begin(), lines.end());
    QCryptographicHash digest(QCryptographicHash::Sha256);
    for (const QByteArray &line : lines)
        digest.addData(line);
    return {
        {QStringLiteral("design"), netlist->name()},
        {QStringLiteral("ports"), toJson(ports)},
        {QStringLiteral("nets"), qint64(data.nets.size())},
        {QStringLiteral("instances"), qint64(data.instances.size())},
        {QStringLiteral("instancesByCategory"), toJson(categories)},
        {QStringLiteral("instancesByPrimitive"), toJson(primitives)},
        {QStringLiteral("moduleInstances"), modules},
        {QStringLiteral("unknownCellTypes"), toJson(unknown)},
        {QStringLiteral("names"), nameCount},
        {QStringLiteral("namesDigest"), QLatin1String(digest.result().toHex())},
        {QStringLiteral("sha256"), QLatin1String(sha256)},
        {QStringLiteral("readMilliseconds"), elapsed},
    };
}

} // namespace NlsData
