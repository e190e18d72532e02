#include "netlistsummary.h"

#include "designplan_p.h"
#include "netlistfile_p.h"
#include "netlistparser_p.h"
#include "readcontrol.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <new>

namespace NlsData {

namespace {

constexpr qint64 HEAD_BYTES = 4096;

QString text(std::string_view name)
{
    return QString::fromUtf8(name.data(), int(name.size()));
}

NetlistSummary summarize(const QString &path, ReadControl *control)
{
    ReadOptions options;
    options.control = control;
    const NetlistFile file = loadNetlistFile(path, options);
    NetlistParser parser(CellLibrary::standard(), control);
    RawNetlist raw = parser.parse(file.text->view());
    const DesignPlan plan(&raw, options.limits);

    std::vector<int> counts(raw.kinds.size());
    for (const RawModule &module : raw.modules) {
        for (const RawCell &cell : module.cells)
            ++counts[cell.kind];
    }
    NetlistSummary result;
    result.top = text(raw.modules[plan.top()].name);
    for (quint32 kind = 0; kind < counts.size(); ++kind) {
        if (counts[kind] > 0 && plan.contents(kind) == DesignPlan::LEAF)
            result.cellTypes[text(raw.kinds[kind].type)] += counts[kind];
    }
    return result;
}

} // namespace

bool readNetlistSummary(const QString &path, NetlistSummary *summary, QString *error,
                        ReadControl *control)
{
    try {
        *summary = summarize(path, control);
        return true;
    } catch (const ReadError &refusal) {
        *error = netlistErrorText(path, refusal.cause);
    } catch (const std::bad_alloc &) {
        *error = netlistErrorText(path, QStringLiteral("not enough memory"));
    }
    return false;
}

bool looksLikeNetlist(const QString &path)
{
    static const QRegularExpression beginning(
        QStringLiteral("^\\s*\\{\\s*(\"creator\"\\s*:\\s*\"(\\\\.|[^\"\\\\])*\"\\s*,\\s*)?"
                       "\"modules\"\\s*:\\s*\\{"));
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    return QString::fromUtf8(file.read(HEAD_BYTES)).contains(beginning);
}

} // namespace NlsData
