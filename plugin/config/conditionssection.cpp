// The operating conditions: text elements of the root element, without a section of their own.

#include "config/sections.h"

#include "config/filenames.h"
#include "config/plainnumber.h"

#include <QDomElement>
#include <QXmlStreamWriter>

namespace VLT {

namespace {

void parse(const QString &text, QString *value)
{
    *value = text;
}

void parse(const QString &text, double *value)
{
    *value = numberFromText(text);
}

void parse(const QString &text, Theta *value)
{
    value->given = text != THETA_NOT_GIVEN;
    if (value->given)
        value->value = numberFromText(text);
}

QString toText(const QString &value)
{
    return value;
}

QString toText(double value)
{
    return numberText(value);
}

QString toText(const Theta &value)
{
    return value.given ? numberText(value.value) : THETA_NOT_GIVEN;
}

/// Calls `visit` with the name and the member of every element, in the file's order.
template<class AnyConditions, class Visit>
void forEachElement(AnyConditions &conditions, Visit visit)
{
    visit(NODE_TEMP_GRADE, conditions.tempGrade);
    visit(NODE_PROCESS, conditions.process);
    visit(NODE_JUNCTION_TEMP, conditions.junctionTemp);
    visit(NODE_AMBIENT_TEMP, conditions.ambientTemp);
    visit(NODE_VCC, conditions.vcc);
    visit(NODE_VCCX, conditions.vccx);
    visit(NODE_VCC_LDO, conditions.vccLdo);
    visit(NODE_CUSTOM_THETA_JA, conditions.thetaJA);
    visit(NODE_HEAT_SINK, conditions.heatSink);
    visit(NODE_AIR_FLOW, conditions.airFlow);
    visit(NODE_CUSTOM_THETA_SA, conditions.thetaSA);
    visit(NODE_BOARD_THERMAL_MODEL, conditions.boardThermalModel);
    visit(NODE_CUSTOM_THETA_JB, conditions.thetaJB);
    visit(NODE_BOARD_TEMP, conditions.boardTemp);
}

} // namespace

Conditions readConditions(const QDomElement &root)
{
    Conditions conditions;
    forEachElement(conditions, [&root](const QString &name, auto &member) {
        const QDomElement element = root.firstChildElement(name);
        if (!element.isNull())
            parse(element.text(), &member.emplace());
    });
    return conditions;
}

void writeConditions(QXmlStreamWriter *writer, const Conditions &conditions)
{
    forEachElement(conditions, [writer](const QString &name, const auto &member) {
        if (member)
            writer->writeTextElement(name, toText(*member));
    });
}

} // namespace VLT
