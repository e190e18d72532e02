#include "netlistparser_p.h"

#include "cellindex_p.h"
#include "jsonwalk_p.h"
#include "readcontrol.h"

namespace NlsData {

namespace {

constexpr int FIRST_PERMILLE = 250; // the file is in memory
constexpr int LAST_PERMILLE = 850;  // only elaboration is left
constexpr size_t REPORT_INTERVAL = 4096;
constexpr size_t MAXIMUM_NAME = 0xffff; // bytes; paths of 256 levels stay within a QString

/// Attributes are texts of binary digits; older tool versions write plain numbers.
bool isTrue(std::string_view token)
{
    return token.find_first_not_of("0\" \t\r\n") != std::string_view::npos;
}

} // namespace

const size_t NetlistParser::PADDING = simdjson::SIMDJSON_PADDING;

class NetlistParser::Private : private JsonWalk
{
public:
    Private(const CellLibrary &library, ReadControl *control, bool withSources)
        : m_control(control)
        , m_withSources(withSources)
        , m_index(library, &m_netlist)
    {
    }

    RawNetlist parse(std::string_view text);

private:
    QString place() const override;
    void report(const char *position);

    using Type = CellIndex::Type;
    struct CellDirection
    {
        quint64 cell = 0;
        Direction direction = Direction::Unknown;
    };

    std::string_view name(ondemand::field &field) const;
    void readModules(ondemand::value value);
    void readModule(std::string_view name, ondemand::value value);
    void readAttributes(ondemand::value value);
    void readPorts(ondemand::value value);
    void readNets(ondemand::value value);
    bool readVectorField(const ondemand::raw_json_string &key, ondemand::value value,
                         RawVector *vector);
    void checkVector(RawVector *vector, const char *what);
    void readCells(ondemand::value value);
    void readCell(std::string_view name, ondemand::value value);
    void readDirections(ondemand::value value, Type *type);
    void readConnections(ondemand::value value, Type *type);
    void readParameters(ondemand::value value);
    void readCellAttributes(ondemand::value value);
    void readBits(ondemand::value value, std::vector<RawBit> *bits);
    Direction direction(ondemand::value value) const;
    quint32 portNumber(ondemand::field &field, Type *type, size_t place);
    quint32 portNumber(std::string_view name);

    ReadControl *const m_control;
    const bool m_withSources;
    ondemand::parser m_parser;
    RawNetlist m_netlist;
    CellIndex m_index;
    RawModule *m_module = nullptr;
    std::string_view m_object; ///< name of the port, cell or net being read
    bool m_modulesFound = false;

    std::vector<CellDirection> m_directions; ///< of the current cell, by port number
    std::vector<CellParameter> m_parameters;
    Type m_unknownType{};
    quint64 m_cell = 0;
    std::string_view m_scopeModule; ///< attributes of the current cell
    std::string_view m_scopeSource;
};

QString NetlistParser::Private::place() const
{
    QString place;
    if (m_module)
        place = QStringLiteral(" in module '%1'").arg(quoted(m_module->name));
    if (!m_object.empty())
        place += QStringLiteral(" at '%1'").arg(quoted(m_object));
    return place;
}

void NetlistParser::Private::report(const char *position)
{
    if (!m_control)
        return;
    const double share = double(position - text().data()) / double(text().size());
    m_control->report(FIRST_PERMILLE + int(share * (LAST_PERMILLE - FIRST_PERMILLE)));
}

RawNetlist NetlistParser::Private::parse(std::string_view text)
{
    start(text);
    if (text.find_first_not_of(" \t\r\n") == std::string_view::npos)
        fail(simdjson::EMPTY, "");
    ondemand::document document;
    check(m_parser.iterate(text, text.size() + PADDING).get(document), "netlist");
    ondemand::object root;
    const simdjson::error_code error = document.get_object().get(root);
    if (error == simdjson::INCORRECT_TYPE)
        refuse(QStringLiteral("not a JSON netlist"));
    check(error, "netlist");
    for (auto result : root) {
        ondemand::field field = take(result, "netlist");
        if (field.key() == "modules")
            readModules(field.value());
        else
            skip(field.value());
    }
    if (document.current_location().error() != simdjson::OUT_OF_BOUNDS)
        refuse(QStringLiteral("not valid JSON: text after its end"));
    if (!m_modulesFound)
        refuse(QStringLiteral("not a netlist: 'modules' is missing"));
    return std::move(m_netlist);
}

/// The key of an object of the design, within bounds.
std::string_view NetlistParser::Private::name(ondemand::field &field) const
{
    const std::string_view name = key(field);
    if (name.size() > MAXIMUM_NAME)
        refuse(QStringLiteral("a name is longer than %1 bytes%2").arg(MAXIMUM_NAME).arg(place()));
    return name;
}

void NetlistParser::Private::readModules(ondemand::value value)
{
    m_modulesFound = true;
    for (auto result : object(value, "modules")) {
        ondemand::field field = take(result, "modules");
        report(field.key().raw());
        readModule(name(field), field.value());
    }
}

void NetlistParser::Private::readModule(std::string_view name, ondemand::value value)
{
    m_netlist.modules.emplace_back();
    m_module = &m_netlist.modules.back();
    m_module->name = name;
    for (auto result : object(value, "module")) {
        ondemand::field field = take(result, "module");
        if (field.key() == "attributes")
            readAttributes(field.value());
        else if (field.key() == "ports")
            readPorts(field.value());
        else if (field.key() == "cells")
            readCells(field.value());
        else if (field.key() == "netnames")
            readNets(field.value());
        else
            skip(field.value());
        m_object = {};
    }
    m_module = nullptr;
}

void NetlistParser::Private::readAttributes(ondemand::value value)
{
    for (auto result : object(value, "attributes")) {
        ondemand::field field = take(result, "attributes");
        const ondemand::raw_json_string key = field.key();
        const bool set = isTrue(field.value().raw_json_token());
        if (key == "top")
            m_module->top = set;
        else if (key == "blackbox" || key == "whitebox")
            m_module->blackbox = m_module->blackbox || set;
        skip(field.value());
    }
}

Direction NetlistParser::Private::direction(ondemand::value value) const
{
    const ondemand::raw_json_string text = take(value.get_raw_json_string(), "direction");
    if (text == "input")
        return Direction::Input;
    if (text == "output")
        return Direction::Output;
    return text == "inout" ? Direction::Bidirectional : Direction::Unknown;
}

/// The fields that ports and nets have in common.
bool NetlistParser::Private::readVectorField(const ondemand::raw_json_string &key,
                                             ondemand::value value, RawVector *vector)
{
    if (key == "bits") {
        vector->first = quint32(m_module->bits.size());
        readBits(value, &m_module->bits);
        vector->count = quint32(m_module->bits.size()) - vector->first;
        return true;
    }
    if (key == "offset") {
        const int64_t offset = take(value.get_int64(), "offset");
        if (offset < -0x3fffffff || offset > 0x3fffffff)
            fail(simdjson::NUMBER_OUT_OF_RANGE, "offset");
        vector->offset = qint32(offset);
        vector->isVector = true;
        return true;
    }
    if (key == "upto") {
        vector->upto = take(value.get_int64(), "upto") != 0;
        vector->isVector = vector->isVector || vector->upto;
        return true;
    }
    return false;
}

void NetlistParser::Private::checkVector(RawVector *vector, const char *what)
{
    if (vector->count > 0x3fffffff)
        fail(simdjson::NUMBER_OUT_OF_RANGE, what);
    vector->isVector = vector->isVector || vector->count > 1;
}

void NetlistParser::Private::readPorts(ondemand::value value)
{
    for (auto result : object(value, "ports")) {
        ondemand::field field = take(result, "ports");
        RawVector port;
        port.name = m_object = name(field);
        port.portName = portNumber(port.name);
        for (auto partResult : object(field.value(), "port")) {
            ondemand::field part = take(partResult, "port");
            if (part.key() == "direction")
                port.direction = direction(part.value());
            else if (!readVectorField(part.key(), part.value(), &port))
                skip(part.value());
        }
        checkVector(&port, "bits");
        m_module->ports.push_back(port);
    }
}

void NetlistParser::Private::readNets(ondemand::value value)
{
    for (auto result : object(value, "netnames")) {
        ondemand::field field = take(result, "netnames");
        RawVector net;
        if (m_module->nets.size() % REPORT_INTERVAL == 0)
            report(field.key().raw());
        net.name = m_object = name(field);
        for (auto partResult : object(field.value(), "net")) {
            ondemand::field part = take(partResult, "net");
            if (part.key() == "hide_name")
                net.generatedName = take(part.value().get_int64(), "hide_name") != 0;
            else if (!readVectorField(part.key(), part.value(), &net))
                skip(part.value());
        }
        checkVector(&net, "bits");
        m_module->nets.push_back(net);
    }
}

void NetlistParser::Private::readBits(ondemand::value value, std::vector<RawBit> *bits)
{
    for (auto result : array(value, "bits")) {
        ondemand::value bit = take(result, "bits");
        if (take(bit.type(), "bits") == ondemand::json_type::string) {
            check(bit.get_raw_json_string().error(), "bits");
            bits->push_back(CONSTANT_BIT);
            continue;
        }
        const uint64_t number = take(bit.get_uint64(), "bits");
        if (number > MAXIMUM_BIT)
            fail(simdjson::NUMBER_OUT_OF_RANGE, "bits");
        bits->push_back(RawBit(number));
    }
}

void NetlistParser::Private::readCells(ondemand::value value)
{
    for (auto result : object(value, "cells")) {
        ondemand::field field = take(result, "cells");
        if (m_module->cells.size() % REPORT_INTERVAL == 0)
            report(field.key().raw());
        m_object = name(field);
        readCell(m_object, field.value());
    }
}

void NetlistParser::Private::readCell(std::string_view name, ondemand::value value)
{
    ++m_cell;
    m_parameters.clear();
    Type *type = nullptr;
    const auto firstPin = quint32(m_module->pins.size());
    if (m_withSources)
        m_module->sources.emplace_back();
    m_scopeModule = m_scopeSource = {};
    for (auto result : object(value, "cell")) {
        ondemand::field field = take(result, "cell");
        const ondemand::raw_json_string key = field.key();
        if (key == "type")
            type = m_index.type(string(field.value(), "type"));
        else if (key == "port_directions")
            readDirections(field.value(), type ? type : &m_unknownType);
        else if (key == "connections")
            readConnections(field.value(), type ? type : &m_unknownType);
        else if (m_withSources && key == "attributes")
            readCellAttributes(field.value());
        else if (key == "parameters" && (!type || (type->library && type->library->hasVariants())))
            readParameters(field.value());
        else
            skip(field.value());
    }
    if (!type)
        refuse(QStringLiteral("not a netlist: a cell has no type%1").arg(place()));
    for (size_t i = firstPin; i < m_module->pins.size(); ++i) {
        RawPin &pin = m_module->pins[i];
        const CellDirection &given = m_directions[pin.portName];
        pin.direction = quint32(given.cell == m_cell ? given.direction : Direction::Unknown);
    }
    if (m_withSources && type->name == SCOPE_INFO) {
        m_module->sources.back() = m_scopeSource;
        m_module->scopeModules.emplace_back(quint32(m_module->cells.size()), m_scopeModule);
    }
    m_module->cells.push_back({name, m_index.kind(type, m_parameters), firstPin});
}

void NetlistParser::Private::readCellAttributes(ondemand::value value)
{
    for (auto result : object(value, "attributes")) {
        ondemand::field field = take(result, "attributes");
        const ondemand::raw_json_string key = field.key();
        ondemand::value content = field.value();
        std::string_view *text = nullptr;
        if (key == "src")
            text = &m_module->sources.back();
        else if (key == "cell_src")
            text = &m_scopeSource;
        else if (key == "module")
            text = &m_scopeModule;
        if (text && take(content.type(), "attributes") == ondemand::json_type::string)
            *text = string(content, "attributes");
        else
            skip(content);
    }
}

void NetlistParser::Private::readDirections(ondemand::value value, Type *type)
{
    size_t place = 0;
    for (auto result : object(value, "port_directions")) {
        ondemand::field field = take(result, "port_directions");
        const quint32 number = portNumber(field, type, place++);
        m_directions[number] = {m_cell, direction(field.value())};
    }
}

void NetlistParser::Private::readConnections(ondemand::value value, Type *type)
{
    size_t place = 0;
    for (auto result : object(value, "connections")) {
        ondemand::field field = take(result, "connections");
        RawPin pin;
        pin.portName = portNumber(field, type, place++);
        pin.direction = quint32(Direction::Unknown);
        pin.firstBit = quint32(m_module->pinBits.size());
        readBits(field.value(), &m_module->pinBits);
        m_module->pins.push_back(pin);
    }
}

void NetlistParser::Private::readParameters(ondemand::value value)
{
    for (auto result : object(value, "parameters")) {
        ondemand::field field = take(result, "parameters");
        ondemand::value content = field.value();
        CellParameter parameter;
        parameter.name = key(field);
        const ondemand::json_type kind = take(content.type(), "parameters");
        if (kind == ondemand::json_type::string) {
            parameter.value = string(content, "parameters");
        } else if (kind == ondemand::json_type::number) {
            const std::string_view token = content.raw_json_token();
            parameter.value = token.substr(0, token.find_first_of(" \t\r\n"));
            parameter.decimal = true;
            skip(content);
        } else {
            skip(content);
            continue;
        }
        m_parameters.push_back(parameter);
    }
}

quint32 NetlistParser::Private::portNumber(ondemand::field &field, Type *type, size_t place)
{
    if (place < type->ports.size() && field.key().unsafe_is_equal(type->ports[place].name))
        return type->ports[place].number;
    const std::string_view name = key(field);
    const quint32 number = portNumber(name);
    // The prediction compares the file's text, so it never matches an escaped name.
    if (place == type->ports.size() && name.find_first_of("\\\"") == std::string_view::npos)
        type->ports.push_back({name, number});
    return number;
}

quint32 NetlistParser::Private::portNumber(std::string_view name)
{
    const quint32 number = m_index.port(name);
    if (number >= m_directions.size())
        m_directions.resize(size_t(number) + 1);
    return number;
}

NetlistParser::NetlistParser(const CellLibrary &library, ReadControl *control, bool withSources)
    : d(new Private(library, control, withSources))
{
}

NetlistParser::~NetlistParser() = default;

RawNetlist NetlistParser::parse(std::string_view text)
{
    return d->parse(text);
}

} // namespace NlsData
