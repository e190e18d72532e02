// Clocks, ports, block SRAMs and flip-flops.

#include "config/sections.h"

#include "config/filenames.h"
#include "config/plainnumber.h"
#include "config/section.h"

#include <QDomElement>
#include <QXmlStreamWriter>

namespace VLT {

namespace {

// In the order in which they are written.

const NumberAttribute<VLT_ClkEnable> CLOCK_NUMBERS[] = {
    {ATTR_VALUE, &VLT_ClkEnable::enable}, {ATTR_QUAD1, &VLT_ClkEnable::quad1},
    {ATTR_QUAD2, &VLT_ClkEnable::quad2},  {ATTR_QUAD3, &VLT_ClkEnable::quad3},
    {ATTR_QUAD4, &VLT_ClkEnable::quad4},
};

const NumberAttribute<VLT_Port> PORT_NUMBERS[] = {{ATTR_OUT_ENABLE, &VLT_Port::outEnable},
                                                  {ATTR_CAPACITY, &VLT_Port::capacity}};

const NumberAttribute<VLT_BSRam> RAM_NUMBERS[] = {
    {ATTR_A_CLK_ENABLE, &VLT_BSRam::aEnable}, {ATTR_B_CLK_ENABLE, &VLT_BSRam::bEnable},
    {ATTR_A_READ, &VLT_BSRam::aRead},         {ATTR_A_WRITE, &VLT_BSRam::aWrite},
    {ATTR_B_READ, &VLT_BSRam::bRead},         {ATTR_B_WRITE, &VLT_BSRam::bWrite},
};

const NumberAttribute<VLT_Dff> DFF_NUMBERS[] = {{ATTR_VALUE, &VLT_Dff::value}};

template<class Record, size_t count>
Record readRecord(const QDomElement &element, const NumberAttribute<Record> (&numbers)[count])
{
    Record record;
    record.name = keptText(element, ATTR_NAME);
    readNumbers(element, numbers, &record);
    return record;
}

template<class Record, size_t count>
void writeRecord(QXmlStreamWriter *writer, const QString &node,
                 const NumberAttribute<Record> (&numbers)[count], const Record &record)
{
    writer->writeEmptyElement(node);
    writer->writeAttribute(ATTR_NAME, record.name);
    writeNumbers(writer, numbers, record);
}

double defaultOf(const QDomElement &section, const QString &attribute)
{
    return numberFromText(section.attribute(attribute, QStringLiteral("100")));
}

} // namespace

bool readClocks(const QDomElement &root, double *value, const RecordSink<VLT_ClkEnable> &add)
{
    const QDomElement section = root.firstChildElement(NODE_GLOBAL_ENABLE);
    if (section.isNull())
        return false;
    *value = numberFromText(section.attribute(ATTR_VALUE));
    forEachChild(section, NODE_CLOCK, [&add](const QDomElement &element) {
        add(readRecord(element, CLOCK_NUMBERS), element);
    });
    return true;
}

void writeClocks(QXmlStreamWriter *writer, double value, const Records<VLT_ClkEnable> &clocks)
{
    writer->writeStartElement(NODE_GLOBAL_ENABLE);
    writer->writeAttribute(ATTR_VALUE, numberText(value));
    for (int i = 0; i < clocks.size(); ++i) {
        if (!clocks[i].name.isEmpty())
            writeRecord(writer, NODE_CLOCK, CLOCK_NUMBERS, clocks[i]);
    }
    writer->writeEndElement();
}

bool readPorts(const QDomElement &root, const RecordSink<VLT_Port> &add)
{
    const QDomElement section = root.firstChildElement(NODE_PORT_OUT_ENABLE);
    if (section.isNull())
        return false;
    forEachChild(section, NODE_PORT, [&add](const QDomElement &element) {
        VLT_Port port = readRecord(element, PORT_NUMBERS);
        port.type = element.attribute(ATTR_TYPE).toInt();
        add(std::move(port), element);
    });
    return true;
}

void writePorts(QXmlStreamWriter *writer, const Records<VLT_Port> &ports)
{
    if (ports.isEmpty())
        return;
    writer->writeStartElement(NODE_PORT_OUT_ENABLE);
    for (int i = 0; i < ports.size(); ++i) {
        writeRecord(writer, NODE_PORT, PORT_NUMBERS, ports[i]);
        writer->writeAttribute(ATTR_TYPE, QString::number(ports[i].type));
    }
    writer->writeEndElement();
}

bool readBSRams(const QDomElement &root, BSRamDefaults *defaults, const RecordSink<VLT_BSRam> &add)
{
    const QDomElement section = root.firstChildElement(NODE_BSRAM_ENABLE);
    if (section.isNull())
        return false;
    defaults->clockEnable = defaultOf(section, ATTR_CLOCK_ENABLE);
    defaults->readProbability = defaultOf(section, ATTR_READ_PROBABILITY);
    defaults->writeProbability = defaultOf(section, ATTR_WRITE_PROBABILITY);
    forEachChild(section, NODE_BSRAM, [&add](const QDomElement &element) {
        VLT_BSRam ram = readRecord(element, RAM_NUMBERS);
        ram.type = element.attribute(ATTR_TYPE).toInt();
        add(std::move(ram), element);
    });
    return true;
}

void writeBSRams(QXmlStreamWriter *writer, const BSRamDefaults &defaults,
                 const Records<VLT_BSRam> &rams)
{
    writer->writeStartElement(NODE_BSRAM_ENABLE);
    writer->writeAttribute(ATTR_CLOCK_ENABLE, numberText(defaults.clockEnable));
    writer->writeAttribute(ATTR_READ_PROBABILITY, numberText(defaults.readProbability));
    writer->writeAttribute(ATTR_WRITE_PROBABILITY, numberText(defaults.writeProbability));
    for (int i = 0; i < rams.size(); ++i) {
        if (rams[i].name.isEmpty())
            continue;
        writeRecord(writer, NODE_BSRAM, RAM_NUMBERS, rams[i]);
        writer->writeAttribute(ATTR_TYPE, QString::number(rams[i].type));
    }
    writer->writeEndElement();
}

bool readDffs(const QDomElement &root, const RecordSink<VLT_Dff> &add)
{
    const QDomElement section = root.firstChildElement(NODE_LOCAL_ENABLE);
    if (section.isNull())
        return false;
    forEachChild(section, NODE_INSTANCE, [&add](const QDomElement &element) {
        add(readRecord(element, DFF_NUMBERS), element);
    });
    return true;
}

void writeDffs(QXmlStreamWriter *writer, const Records<VLT_Dff> &dffs)
{
    writer->writeStartElement(NODE_LOCAL_ENABLE);
    for (int i = 0; i < dffs.size(); ++i)
        writeRecord(writer, NODE_INSTANCE, DFF_NUMBERS, dffs[i]);
    writer->writeEndElement();
}

} // namespace VLT
