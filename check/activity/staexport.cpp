#include "check/activity/activityexport.h"
#include "check/configurationinput.h"
#include "check/names/designnames.h"

#include "nlsdata/netlist.h"

#include <algorithm>

namespace Check {

namespace {

/// A word of a Tcl command, whatever is in it.
QString tclWord(const QString &text)
{
    static const QString special = QStringLiteral("{}\\\n\r");
    const bool isPlain =
        std::none_of(text.begin(), text.end(), [](QChar c) { return special.contains(c); });
    if (isPlain)
        return QLatin1Char('{') + text + QLatin1Char('}');
    QString word;
    for (const QChar c : text) {
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            word += c == QLatin1Char('\n') ? QStringLiteral("\\n") : QStringLiteral("\\r");
        else if (c.isLetterOrNumber() || c == QLatin1Char('_'))
            word += c;
        else
            word += QLatin1Char('\\') + c;
    }
    return word;
}

/// Sets the activity of the pin of a cell that drives one of the nets, which are names of the same.
/// Some versions of the tool lack a procedure that set_power_activity -pins needs.
const char *const PROCEDURES = R"(proc set_driver_activity {cell nets activity} {
    foreach pin [get_pins "$cell/*"] {
        if {[get_property $pin direction] eq "input"} continue
        foreach net [get_nets -of_objects $pin] {
            if {[get_property $net full_name] in $nets} {
                if {[catch {set_power_activity -pins $pin -activity $activity -duty 0.5}]} {
                    sta::set_power_pin_activity $pin $activity 0.5
                }
                return
            }
        }
    }
    puts "Warning: no pin of $cell drives [lindex $nets 0]."
}
)";

/// A word that is safe behind "#".
QString commentText(QString text)
{
    return text.replace(QLatin1Char('\n'), QLatin1String("\\n"))
        .replace(QLatin1Char('\r'), QLatin1String("\\r"))
        .replace(QLatin1Char('\\'), QLatin1Char('/'));
}

class StaExport
{
public:
    explicit StaExport(const ExportInput &input)
        : m_input(input)
        , m_configuration(input.input.configuration)
    {
    }

    Exported run()
    {
        line(QStringLiteral("# Activity of %1").arg(commentText(m_input.input.path)));
        if (needsPeriod() && !addPeriod())
            return m_exported;
        m_exported.bytes += PROCEDURES;
        addDefaults();
        addFiles();
        addRates();
        addRest();
        return m_exported;
    }

private:
    void line(const QString &text) { m_exported.bytes += text.toUtf8() + '\n'; }
    void comment(const QString &text) { line(QStringLiteral("# ") + commentText(text)); }

    bool needsPeriod() const
    {
        const auto isSignal = [](const std::optional<VLT::DefaultRate> &rate) {
            return rate && rate->unit == VLT::RateUnit::Signal;
        };
        const VLT::RateSection &rates = m_configuration.rates;
        return isSignal(m_configuration.defaultRates.io) ||
               isSignal(m_configuration.defaultRates.remaining) ||
               (rates.unit == VLT::RateUnit::Signal && !rates.records.isEmpty());
    }

    /// The tool relates activities to the fastest clock.
    bool addPeriod()
    {
        const auto &clocks = m_configuration.clocks.records;
        if (!m_input.clocks.isEmpty()) {
            double period = m_input.clocks.first().second;
            for (const auto &clock : m_input.clocks)
                period = qMin(period, clock.second);
            line(QStringLiteral("set period %1").arg(period, 0, 'g', 6));
        } else if (clocks.size() == 1) {
            // Of what the tool knows as clocks, in whatever unit of time it uses.
            line(QStringLiteral("set period [lindex [lsort -real [lmap clock [all_clocks] {"));
            line(QStringLiteral("    sta::time_ui_sta [get_property $clock period]"));
            line(QStringLiteral("}]] 0]"));
        } else {
            m_exported.bytes.clear();
            m_exported.error =
                clocks.isEmpty()
                    ? QStringLiteral("rates in transitions/s need the period of a clock, and none "
                                     "is listed: give --clock NET=PERIOD")
                    : QStringLiteral("rates in transitions/s need the period of a clock, and %1 "
                                     "are listed: give --clock NET=PERIOD")
                          .arg(clocks.size());
            return false;
        }
        return true;
    }

    /// Transitions per clock cycle, which is what a toggle rate gives in percent.
    static QString activity(VLT::RateUnit unit, double value)
    {
        return unit == VLT::RateUnit::Toggle
                   ? QString::number(value / 100, 'g', 6)
                   : QStringLiteral("[expr {%1 * $period}]").arg(value, 0, 'g', 9);
    }

    void addDefaults()
    {
        const auto add = [&](const char *flag, const std::optional<VLT::DefaultRate> &given) {
            const VLT::DefaultRate rate = given.value_or(VLT::DefaultRate());
            line(QStringLiteral("set_power_activity %1 -activity %2 -duty 0.5")
                     .arg(QLatin1String(flag), activity(rate.unit, rate.value)));
        };
        add("-global", m_configuration.defaultRates.remaining);
        add("-input", m_configuration.defaultRates.io);
    }

    void addFiles()
    {
        const auto &records = m_configuration.files.records;
        for (int i = 0; i < records.size(); ++i) {
            const CoveringFile &covering = m_input.coverage.files()[size_t(i)];
            const QString path = covering.file->path;
            if (covering.instance == DesignTree::NONE) {
                ++m_exported.unresolved;
                comment(QStringLiteral("not in the netlist: instance \"%1\" of %2")
                            .arg(records.at(i).entity, path));
                continue;
            }
            if (!covering.file->isUsable() || covering.instance != 0 ||
                covering.scope.counts.coveredNets() == 0) {
                comment(QStringLiteral("no counterpart: %1 for \"%2\"")
                            .arg(path, records.at(i).entity));
                continue;
            }
            if (!records.at(i).startTime.isEmpty() || !records.at(i).endTime.isEmpty())
                comment(QStringLiteral("no counterpart: the time window of ") + path);
            const QString command = covering.file->kind == FileKind::Vcd
                                        ? QStringLiteral("read_vcd")
                                        : QStringLiteral("read_saif");
            const QString scope = covering.file->declarations.path(covering.scope.scope);
            line(QStringLiteral("if {[llength [info commands %1]] > 0} {").arg(command));
            line(QStringLiteral("    %1 -scope %2 %3").arg(command, tclWord(scope), tclWord(path)));
            line(QStringLiteral("} else {"));
            line(QStringLiteral("    puts \"Warning: this version has no %1.\"").arg(command));
            line(QStringLiteral("}"));
        }
    }

    void addRates()
    {
        const VLT::RateSection &rates = m_configuration.rates;
        for (quint32 number = 0; number < m_input.coverage.nets().size(); ++number) {
            const int record = m_input.coverage.nets()[number].rate;
            if (record >= 0)
                addRate(m_input.names.nets().net(number),
                        activity(rates.unit, rates.records.at(record).value.toDouble()));
        }
        for (const int record : m_input.coverage.unresolvedRates()) {
            ++m_exported.unresolved;
            comment(QStringLiteral("not in the netlist: net \"%1\"")
                        .arg(rates.records.at(record).name));
        }
    }

    void addRate(const NlsData::Net *net, const QString &value)
    {
        const NlsData::Instance *driver = net->driver();
        if (!driver) {
            if (m_input.design.kind(m_input.names.nets().number(net)) == NetKind::Input)
                line(QStringLiteral("set_power_activity -input_ports [get_ports %1] -activity %2 "
                                    "-duty 0.5")
                         .arg(tclWord(net->path()), value));
            else
                comment(
                    QStringLiteral("no counterpart: net \"%1\" has no driver").arg(net->path()));
            return;
        }
        const NlsData::NetNames::Names names = m_input.names.nets().names(net);
        QStringList words;
        const QStringList all = names.given + names.fromCells + names.generated;
        for (const QString &name : all)
            words += tclWord(name);
        line(QStringLiteral("set_driver_activity %1 [list %2] %3")
                 .arg(tclWord(driver->path()), words.join(QLatin1Char(' ')), value));
    }

    void addRest()
    {
        const auto add = [&](const char *what, int records) {
            if (records > 0)
                comment(QStringLiteral("no counterpart: %1 records of %2")
                            .arg(QString::number(records), QLatin1String(what)));
        };
        add("clock enables", m_configuration.clocks.records.size());
        add("port output enables", m_configuration.ports.records.size());
        add("block SRAMs", m_configuration.bsrams.records.size());
        add("flip-flop enables", m_configuration.dffs.records.size());
        comment(QStringLiteral("no counterpart: the operating conditions"));
    }

    const ExportInput &m_input;
    const VLT::Configuration &m_configuration;
    Exported m_exported;
};

} // namespace

Exported exportSta(const ExportInput &input)
{
    return StaExport(input).run();
}

} // namespace Check
