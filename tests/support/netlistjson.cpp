#include "netlistjson.h"

#include <QFile>

namespace {

QByteArray quoted(const QByteArray &text)
{
    QByteArray result = text;
    result.replace('\\', "\\\\").replace('"', "\\\"");
    return '"' + result + '"';
}

QByteArray shapeOf(int offset, bool upto)
{
    QByteArray shape;
    if (offset != 0)
        shape += ", \"offset\": " + QByteArray::number(offset);
    if (upto)
        shape += ", \"upto\": 1";
    return shape;
}

QByteArray array(const NetlistJson::Bits &bits)
{
    QByteArray text;
    for (const NetlistJson::Bit &bit : bits)
        text += (text.isEmpty() ? " " : ", ") + bit.text;
    return '[' + text + " ]";
}

void append(QByteArray *list, const QByteArray &name, const QByteArray &value)
{
    *list += (list->isEmpty() ? "\n" : ",\n") + quoted(name) + ": " + value;
}

} // namespace

NetlistJson::Module &NetlistJson::Module::attribute(const QByteArray &name, const QByteArray &text)
{
    append(&m_attributes, name, quoted(text));
    return *this;
}

NetlistJson::Module &NetlistJson::Module::port(const QByteArray &name, const char *direction,
                                               const Bits &bits, int offset, bool upto)
{
    const QByteArray shape = shapeOf(offset, upto);
    append(&m_ports, name,
           "{ \"direction\": " + quoted(direction) + shape + ", \"bits\": " + array(bits) + " }");
    return addNet(name, bits, false, shape);
}

NetlistJson::Module &NetlistJson::Module::cell(const QByteArray &name, const QByteArray &type,
                                               const QList<Pin> &pins)
{
    QByteArray directions, connections;
    for (const Pin &pin : pins) {
        if (pin.direction)
            append(&directions, pin.port, quoted(pin.direction));
        append(&connections, pin.port, array(pin.bits));
    }
    append(&m_cells, name,
           "{ \"hide_name\": " + QByteArray(name.startsWith('$') ? "1" : "0") + ", \"type\": " +
               quoted(type) + ", \"parameters\": {}, \"attributes\": {}, \"port_directions\": {" +
               directions + "}, \"connections\": {" + connections + "} }");
    return *this;
}

NetlistJson::Module &NetlistJson::Module::net(const QByteArray &name, const Bits &bits, int offset,
                                              bool upto)
{
    return addNet(name, bits, false, shapeOf(offset, upto));
}

NetlistJson::Module &NetlistJson::Module::generatedNet(const QByteArray &name, const Bits &bits)
{
    return addNet(name, bits, true, {});
}

NetlistJson::Module &NetlistJson::Module::addNet(const QByteArray &name, const Bits &bits,
                                                 bool generated, const QByteArray &shape)
{
    append(&m_nets, name,
           "{ \"hide_name\": " + QByteArray(generated ? "1" : "0") + ", \"bits\": " + array(bits) +
               shape + ", \"attributes\": {} }");
    return *this;
}

NetlistJson::Module &NetlistJson::module(const QByteArray &name)
{
    m_modules.emplace_back();
    m_modules.back().m_name = name;
    return m_modules.back();
}

QByteArray NetlistJson::toUtf8() const
{
    QByteArray modules;
    for (const Module &module : m_modules) {
        append(&modules, module.m_name,
               "{ \"attributes\": {" + module.m_attributes + "},\n\"ports\": {" + module.m_ports +
                   "},\n\"cells\": {" + module.m_cells + "},\n\"netnames\": {" + module.m_nets +
                   "} }");
    }
    return "{ \"creator\": \"test\", \"modules\": {" + modules + "} }\n";
}

bool NetlistJson::write(const QString &path) const
{
    const QByteArray text = toUtf8();
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}
