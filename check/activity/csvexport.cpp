#include "check/activity/activityexport.h"
#include "check/configurationinput.h"

namespace Check {

namespace {

/// As RFC 4180 has it.
QString quoted(const QString &text)
{
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QLatin1String("\"\"")) +
           QLatin1Char('"');
}

QString unitName(VLT::RateUnit unit)
{
    return unit == VLT::RateUnit::Toggle ? QStringLiteral("%") : QStringLiteral("transitions/s");
}

/// Value and unit of a net; both are empty when its file does not tell.
QPair<QString, QString> valueOf(const ExportInput &export_, quint32 number)
{
    const VLT::Configuration &configuration = export_.input.configuration;
    const Coverage::Net &net = export_.coverage.nets()[number];
    switch (net.source) {
    case NetSource::Rate:
        return {configuration.rates.records.at(net.rate).value, unitName(configuration.rates.unit)};
    case NetSource::File: {
        const CoveringFile &covering = export_.coverage.files()[size_t(net.file)];
        const BitActivity *activity = export_.coverage.activity(number);
        const double seconds = covering.counts.duration * covering.file->timescale.seconds();
        if (!activity || seconds <= 0)
            return {};
        return {QString::number(double(activity->toggles) / seconds, 'g', 6),
                unitName(VLT::RateUnit::Signal)};
    }
    case NetSource::Constant:
        return {QStringLiteral("0"), unitName(VLT::RateUnit::Toggle)};
    default:
        const auto &rates = configuration.defaultRates;
        const VLT::DefaultRate rate =
            (net.source == NetSource::DefaultIo ? rates.io : rates.remaining)
                .value_or(VLT::DefaultRate());
        return {QString::number(rate.value, 'g', 6), unitName(rate.unit)};
    }
}

} // namespace

Exported exportCsv(const ExportInput &input)
{
    Exported exported;
    QString text = QStringLiteral("path,kind,source,value,unit\r\n");
    const auto add = [&text](const QString &path, const QString &kind, const QString &source,
                             const QString &value, const QString &unit) {
        text += QStringList{quoted(path), kind, source, value, unit}.join(QLatin1Char(',')) +
                QLatin1String("\r\n");
    };
    for (quint32 net = 0; net < input.coverage.nets().size(); ++net) {
        const auto [value, unit] = valueOf(input, net);
        add(input.design.netPath(net), netKindName(input.design.kind(net)),
            netSourceName(input.coverage.nets()[net].source), value, unit);
    }
    const VLT::RateSection &rates = input.input.configuration.rates;
    for (const int record : input.coverage.unresolvedRates()) {
        ++exported.unresolved;
        add(rates.records.at(record).name, QString(), QStringLiteral("unresolved"),
            rates.records.at(record).value, unitName(rates.unit));
    }
    exported.bytes = text.toUtf8();
    return exported;
}

} // namespace Check
