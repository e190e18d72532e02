#include "config/filerules.h"

#include "config/bsramkinds.h"
#include "config/filenames.h"

namespace VLT {

namespace {

const QStringList GRADES = {QStringLiteral("Commercial"), QStringLiteral("Industrial"),
                            QStringLiteral("Automotive")};

TextRule field(Range range)
{
    return {TextRule::Field, range};
}

TextRule choice(TextRule::Kind kind, const QStringList &choices)
{
    return {kind, {0, 0}, choices};
}

QStringList texts(std::initializer_list<const char *> list)
{
    QStringList result;
    for (const char *text : list)
        result.append(QString::fromLatin1(text));
    return result;
}

/// Rule for a record of that name with optional numbers in `range`.
ElementRule record(const QString &node, const std::vector<QString> &numbers, Range range = PERCENT)
{
    ElementRule rule{node};
    rule.isRecord = true;
    rule.attributes.push_back({ATTR_NAME, {}});
    for (const QString &number : numbers)
        rule.attributes.push_back({number, {TextRule::Cell, range}, true});
    return rule;
}

ElementRule withType(ElementRule rule, int count)
{
    rule.attributes.push_back(
        {ATTR_TYPE, {TextRule::Code, {0, count - 1.0}}, false, QStringLiteral("0")});
    return rule;
}

/// The junction temperature's range while a file with this grade is read: the field starts with the
/// first grade, so that one does not change it.
Range junctionOf(const QString &grade)
{
    for (const QString &known : GRADES) {
        if (known.compare(grade, Qt::CaseInsensitive) == 0 && known != GRADES.first())
            return junctionRange(known);
    }
    return ANY_JUNCTION;
}

std::vector<ElementRule> conditionRules(const QString &grade)
{
    const TextRule theta = {TextRule::Theta, THETA};
    return {
        {NODE_VERSION},
        {NODE_TEMP_GRADE, choice(TextRule::Choice, GRADES)},
        {NODE_PROCESS, choice(TextRule::Choice, texts({"Typical", "Worst"}))},
        {NODE_JUNCTION_TEMP, field(junctionOf(grade))},
        {NODE_AMBIENT_TEMP, field(TEMPERATURE)},
        {NODE_VCC, field(VOLTAGE)},
        {NODE_VCCX, field(VOLTAGE)},
        {NODE_VCC_LDO, field(VOLTAGE)},
        {NODE_CUSTOM_THETA_JA, theta},
        {NODE_HEAT_SINK, choice(TextRule::Button, texts({"None", "Low Profile", "Medium Profile",
                                                         "High Profile", "Custom"}))},
        {NODE_AIR_FLOW, choice(TextRule::Exactly, texts({"100", "200", "400", "0"}))},
        {NODE_CUSTOM_THETA_SA, theta},
        {NODE_BOARD_THERMAL_MODEL, choice(TextRule::Button, texts({"None", "Custom", "Typical"}))},
        {NODE_CUSTOM_THETA_JB, theta},
        {NODE_BOARD_TEMP, field(TEMPERATURE)},
    };
}

std::vector<ElementRule> rateRules()
{
    const TextRule typed = {TextRule::Typed};
    ElementRule net = record(NODE_NET, {});
    net.attributes.push_back({ATTR_VALUE, typed});
    ElementRule file = record(NODE_FILE, {});
    file.attributes.push_back(
        {ATTR_TYPE, choice(TextRule::Exactly, {TYPE_VCD, TYPE_SAIF}), false, TYPE_SAIF});
    file.attributes.push_back({ATTR_ENTITY, {}, true});
    file.attributes.push_back({ATTR_START_TIME, typed, true});
    file.attributes.push_back({ATTR_END_TIME, typed, true});
    file.attributes.push_back({ATTR_TIME_UNIT, {}, true});
    const TextRule unit = choice(TextRule::Exactly, {TYPE_TOGGLE, TYPE_SIGNAL});
    return {
        {NODE_NET_RATE, {}, {{ATTR_TYPE, unit, false, TYPE_SIGNAL}}, {net}},
        {NODE_DEFAULT_CFG,
         {},
         {},
         {{NODE_DEFAULT_IO_TOGGLE, field(TOGGLE_RATE)},
          {NODE_DEFAULT_IO_SIGNAL, field(SIGNAL_RATE)},
          {NODE_DEFAULT_RM_TOGGLE, field(TOGGLE_RATE)},
          {NODE_DEFAULT_RM_SIGNAL, field(SIGNAL_RATE)}}},
        {NODE_SIMU_FILE,
         {},
         {},
         {file, {NODE_FILTER_GLITCH, choice(TextRule::Exactly, {FLAG_TRUE, FLAG_FALSE})}}},
    };
}

std::vector<ElementRule> activityRules()
{
    const TextRule percent = field(PERCENT);
    const QString full = QStringLiteral("100");
    ElementRule port = record(NODE_PORT, {ATTR_OUT_ENABLE});
    port.attributes.push_back({ATTR_CAPACITY, {TextRule::Cell, CAPACITY}, true});
    return {
        {NODE_GLOBAL_ENABLE,
         {},
         {{ATTR_VALUE, percent, false, QStringLiteral("0")}},
         {record(NODE_CLOCK, {ATTR_VALUE, ATTR_QUAD1, ATTR_QUAD2, ATTR_QUAD3, ATTR_QUAD4})}},
        {NODE_PORT_OUT_ENABLE, {}, {}, {withType(port, 4)}},
        {NODE_BSRAM_ENABLE,
         {},
         {{ATTR_CLOCK_ENABLE, percent, false, full},
          {ATTR_READ_PROBABILITY, percent, false, full},
          {ATTR_WRITE_PROBABILITY, percent, false, full}},
         {withType(record(NODE_BSRAM, {ATTR_A_CLK_ENABLE, ATTR_B_CLK_ENABLE, ATTR_A_READ,
                                       ATTR_A_WRITE, ATTR_B_READ, ATTR_B_WRITE}),
                   BSRAM_KINDS)}},
        {NODE_LOCAL_ENABLE, {}, {}, {record(NODE_INSTANCE, {ATTR_VALUE})}},
    };
}

} // namespace

ElementRule fileRules(const QString &grade)
{
    ElementRule root{QString()};
    root.children = conditionRules(grade);
    for (const auto &more : {rateRules(), activityRules()})
        root.children.insert(root.children.end(), more.begin(), more.end());
    return root;
}

} // namespace VLT
