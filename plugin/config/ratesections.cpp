// Toggle rates, default rates and simulation activity files.

#include "config/sections.h"

#include "config/filenames.h"
#include "config/plainnumber.h"
#include "config/section.h"

#include <QDomElement>
#include <QXmlStreamWriter>

namespace VLT {

namespace {

std::optional<DefaultRate> readDefaultRate(const QDomElement &section, const QString &toggleNode,
                                           const QString &signalNode)
{
    const QDomElement toggle = section.firstChildElement(toggleNode);
    if (!toggle.isNull())
        return DefaultRate{RateUnit::Toggle, numberFromText(toggle.text())};
    const QDomElement signal = section.firstChildElement(signalNode);
    if (!signal.isNull())
        return DefaultRate{RateUnit::Signal, numberFromText(signal.text())};
    return std::nullopt;
}

/// With two decimals, as shown in its field.
void writeDefaultRate(QXmlStreamWriter *writer, const std::optional<DefaultRate> &rate,
                      const QString &toggleNode, const QString &signalNode)
{
    if (rate)
        writer->writeTextElement(rate->unit == RateUnit::Toggle ? toggleNode : signalNode,
                                 QString::number(rate->value, 'f', 2));
}

void writeFile(QXmlStreamWriter *writer, const VLT_VcdFile &file)
{
    writer->writeEmptyElement(NODE_FILE);
    writer->writeAttribute(ATTR_TYPE, file.isVcd ? TYPE_VCD : TYPE_SAIF);
    writer->writeAttribute(ATTR_NAME, file.file);
    writer->writeAttribute(ATTR_ENTITY, file.entity);
    if (!file.startTime.isEmpty())
        writer->writeAttribute(ATTR_START_TIME, file.startTime);
    if (!file.endTime.isEmpty())
        writer->writeAttribute(ATTR_END_TIME, file.endTime);
    if (!file.startTime.isEmpty() || !file.endTime.isEmpty())
        writer->writeAttribute(ATTR_TIME_UNIT, file.timeUnit);
}

} // namespace

bool readRates(const QDomElement &root, RateUnit *unit, const RecordSink<VLT_Rate> &add)
{
    const QDomElement section = root.firstChildElement(NODE_NET_RATE);
    if (section.isNull())
        return false;
    const bool toggle = section.attribute(ATTR_TYPE) == TYPE_TOGGLE;
    *unit = toggle ? RateUnit::Toggle : RateUnit::Signal;
    forEachChild(section, NODE_NET, [&add](const QDomElement &net) {
        add({keptText(net, ATTR_NAME), keptText(net, ATTR_VALUE)}, net);
    });
    return true;
}

void writeRates(QXmlStreamWriter *writer, RateUnit unit, const Records<VLT_Rate> &rates)
{
    if (rates.isEmpty())
        return;
    writer->writeStartElement(NODE_NET_RATE);
    writer->writeAttribute(ATTR_TYPE, unit == RateUnit::Toggle ? TYPE_TOGGLE : TYPE_SIGNAL);
    for (int i = 0; i < rates.size(); ++i) {
        writer->writeEmptyElement(NODE_NET);
        writer->writeAttribute(ATTR_NAME, rates[i].name);
        writer->writeAttribute(ATTR_VALUE, rates[i].value);
    }
    writer->writeEndElement();
}

bool readDefaultRates(const QDomElement &root, DefaultRates *rates)
{
    const QDomElement section = root.firstChildElement(NODE_DEFAULT_CFG);
    if (section.isNull())
        return false;
    rates->present = true;
    rates->io = readDefaultRate(section, NODE_DEFAULT_IO_TOGGLE, NODE_DEFAULT_IO_SIGNAL);
    rates->remaining = readDefaultRate(section, NODE_DEFAULT_RM_TOGGLE, NODE_DEFAULT_RM_SIGNAL);
    return true;
}

void writeDefaultRates(QXmlStreamWriter *writer, const DefaultRates &rates)
{
    writer->writeStartElement(NODE_DEFAULT_CFG);
    writeDefaultRate(writer, rates.io, NODE_DEFAULT_IO_TOGGLE, NODE_DEFAULT_IO_SIGNAL);
    writeDefaultRate(writer, rates.remaining, NODE_DEFAULT_RM_TOGGLE, NODE_DEFAULT_RM_SIGNAL);
    writer->writeEndElement();
}

bool readFiles(const QDomElement &root, std::optional<bool> *filterGlitch,
               const RecordSink<VLT_VcdFile> &add)
{
    const QDomElement section = root.firstChildElement(NODE_SIMU_FILE);
    if (section.isNull())
        return false;
    forEachChild(section, NODE_FILE, [&add](const QDomElement &element) {
        VLT_VcdFile file;
        file.file = keptText(element, ATTR_NAME);
        file.entity = keptText(element, ATTR_ENTITY);
        file.isVcd = element.attribute(ATTR_TYPE) == TYPE_VCD;
        file.startTime = keptText(element, ATTR_START_TIME);
        file.endTime = keptText(element, ATTR_END_TIME);
        file.timeUnit = keptText(element, ATTR_TIME_UNIT);
        add(std::move(file), element);
    });
    const QDomElement glitch = section.firstChildElement(NODE_FILTER_GLITCH);
    if (!glitch.isNull())
        *filterGlitch = glitch.text() == FLAG_TRUE;
    return true;
}

void writeFiles(QXmlStreamWriter *writer, const Records<VLT_VcdFile> &files, bool filterGlitch)
{
    if (files.isEmpty())
        return;
    writer->writeStartElement(NODE_SIMU_FILE);
    for (int i = 0; i < files.size(); ++i)
        writeFile(writer, files[i]);
    writer->writeTextElement(NODE_FILTER_GLITCH, filterGlitch ? FLAG_TRUE : FLAG_FALSE);
    writer->writeEndElement();
}

} // namespace VLT
