#include "workbench/panes/coveragetexts.h"

#include <QCoreApplication>

namespace Workbench {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("Coverage", text);
}

} // namespace

QString sourceText(Check::NetSource source)
{
    switch (source) {
    case Check::NetSource::Constant:
        return tr("constant");
    case Check::NetSource::Rate:
        return tr("rate");
    case Check::NetSource::File:
        return tr("file");
    case Check::NetSource::DefaultIo:
        return tr("IO default");
    default:
        return tr("default");
    }
}

QString kindText(Check::NetKind kind)
{
    switch (kind) {
    case Check::NetKind::Input:
        return tr("Inputs");
    case Check::NetKind::FlipFlop:
        return tr("Flip-Flops");
    case Check::NetKind::Memory:
        return tr("Memories");
    case Check::NetKind::Pad:
        return tr("Pads");
    case Check::NetKind::Logic:
        return tr("Logic");
    default:
        return tr("Undriven");
    }
}

QString percentText(quint32 covered, quint32 nets)
{
    if (nets == 0)
        return {};
    const int percent = covered == nets ? 100 : qMin(99, qRound(100.0 * covered / nets));
    return QStringLiteral("%1 %").arg(percent);
}

QString shareText(quint32 covered, quint32 nets)
{
    if (nets == 0)
        return tr("none");
    return tr("%1 of %2 (%3)")
        .arg(QString::number(covered), QString::number(nets), percentText(covered, nets));
}

QString sourcesText(const Check::InstanceCoverage &counts)
{
    QStringList texts;
    for (const ShownSource &shown : SHOWN_SOURCES) {
        const quint32 nets = counts.sources[size_t(shown.source)];
        if (nets > 0)
            texts += QStringLiteral("%1 %2").arg(QString::number(nets), sourceText(shown.source));
    }
    return texts.isEmpty() ? tr("no nets") : texts.join(QLatin1String(", "));
}

} // namespace Workbench
