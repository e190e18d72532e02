#include "designdata.h"

#include <QFile>
#include <QTextStream>

namespace {

const char HEADER[] = "{\n  \"creator\": \"generated\",\n  \"modules\": {\n    \"soc\": {\n"
                      "      \"attributes\": {\n"
                      "        \"top\": \"00000000000000000000000000000001\"\n      },\n"
                      "      \"ports\": {\n";

/// Writes members of a JSON object one after another, with the commas between them.
class Members
{
public:
    explicit Members(QTextStream &out)
        : m_out(out)
    {
    }

    QTextStream &next(const QString &name)
    {
        m_out << (m_first ? "        \"" : ",\n        \"") << name << "\": {";
        m_first = false;
        return m_out;
    }

private:
    QTextStream &m_out;
    bool m_first = true;
};

struct Pin
{
    const char *name;
    const char *direction;
    int bit;
};

void writeCell(QTextStream &out, const char *type, const char *parameters, int line,
               std::initializer_list<Pin> pins)
{
    out << "\n          \"hide_name\": 0,\n          \"type\": \"" << type
        << "\",\n          \"parameters\": {" << parameters
        << "},\n          \"attributes\": {\n            \"module_not_derived\": "
           "\"00000000000000000000000000000001\",\n            \"src\": \"rtl/core.v:"
        << line % 4000 << ".5-" << line % 4000 + 12
        << ".8\"\n          },\n          \"port_directions\": {";
    const char *separator = "\n";
    for (const Pin &pin : pins) {
        out << separator << "            \"" << pin.name << "\": \"" << pin.direction << '"';
        separator = ",\n";
    }
    out << "\n          },\n          \"connections\": {";
    separator = "\n";
    for (const Pin &pin : pins) {
        out << separator << "            \"" << pin.name << "\": [ " << pin.bit << " ]";
        separator = ",\n";
    }
    out << "\n          }\n        }";
}

void writeVector(Members &members, const QString &name, int first, int count, const char *extra)
{
    QTextStream &out = members.next(name);
    out << extra << "\"bits\": [ ";
    for (int i = 0; i < count; ++i)
        out << (i ? ", " : "") << first + i;
    out << " ] }";
}

void writeClock(QTextStream &out)
{
    Members ports(out);
    writeVector(ports, QStringLiteral("clk"), 2, 1, " \"direction\": \"input\", ");
    writeVector(ports, QStringLiteral("data"), 3, 32, " \"direction\": \"input\", ");
    writeVector(ports, QStringLiteral("result"), 40, 32, " \"direction\": \"output\", ");
}

/// The generated design repeats these five cells, of three kinds.
const char *cellBase(int i)
{
    return i % 5 < 3    ? "operand_FERN_LUT4_F"
           : i % 5 == 3 ? "count_FERN_DFFE_Q"
                        : "state_FERN_DFFER_Q";
}

} // namespace

QString cellName(int i)
{
    return QStringLiteral("u_core%1.u_stage%2.%3_%4")
        .arg(QString::number(i / 32 % 24), QString::number(i / 768 % 7), QLatin1String(cellBase(i)),
             QString::number(i));
}

QString netName(int i)
{
    return QStringLiteral("u_core%1.operand_%2").arg(i / 32 % 24).arg(i / 32);
}

QStringList registerNames(int count)
{
    QStringList names;
    names.reserve(count);
    for (int i = 0; i < count; ++i)
        names.append(QStringLiteral("soc/cpu%1/stage%2/reg_%3")
                         .arg(QString::number(i % 16), QString::number(i / 16 % 5),
                              QString::number(i / 80)));
    return names;
}

qint64 writeNetlist(const QString &path, int cells)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write the generated netlist");
    QTextStream out(&file);
    out << HEADER;
    writeClock(out);
    out << "\n      },\n      \"cells\": {\n";
    Members members(out);
    const char table[] = "\n            \"INIT\": \"1010110011110000\"\n          ";
    for (int i = 0; i < cells; ++i) {
        // The output of cell i is bit 100 + i; inputs come from cells shortly before.
        const auto from = [i](int back) { return i < back ? 3 + i % 32 : 100 + i - back; };
        members.next(cellName(i));
        if (i % 5 < 3) {
            writeCell(out, "FERN_LUT4", table, i,
                      {{"A", "input", from(1)},
                       {"B", "input", from(7)},
                       {"C", "input", from(33)},
                       {"D", "input", from(65)},
                       {"F", "output", 100 + i}});
        } else if (i % 5 == 3) {
            writeCell(out, "FERN_DFFE", " ", i,
                      {{"CLK", "input", 2},
                       {"CE", "input", from(9)},
                       {"D", "input", from(1)},
                       {"Q", "output", 100 + i}});
        } else {
            writeCell(out, "FERN_DFFER", " ", i,
                      {{"CLK", "input", 2},
                       {"CE", "input", from(5)},
                       {"CLR", "input", 3},
                       {"D", "input", from(1)},
                       {"Q", "output", 100 + i}});
        }
    }
    out << "\n      },\n      \"netnames\": {\n";
    Members nets(out);
    const char plain[] =
        " \"hide_name\": 0, \"attributes\": { \"src\": \"rtl/core.v:12.5-12.40\" }, ";
    writeVector(nets, QStringLiteral("clk"), 2, 1, plain);
    writeVector(nets, QStringLiteral("data"), 3, 32, plain);
    writeVector(nets, QStringLiteral("result"), 40, 32, plain);
    for (int i = 0; i < cells; i += 32)
        writeVector(nets, netName(i), 100 + i, qMin(32, cells - i), plain);
    for (int i = 0; i < cells; i += 6)
        writeVector(nets, QStringLiteral("u_core.carry_FERN_LUT4_F_%1").arg(i), 100 + i, 1,
                    " \"hide_name\": 1, \"attributes\": { }, ");
    out << "\n      }\n    }\n  }\n}\n";
    out.flush();
    return file.size();
}

void writeFlipFlops(const QString &path, const QStringList &names)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write the generated netlist");
    QTextStream out(&file);
    out << HEADER;
    writeClock(out);
    out << "\n      },\n      \"cells\": {\n";
    Members members(out);
    int bit = 100;
    QStringList ordered = names; // as the synthesis tool writes them
    ordered.sort();
    for (const QString &name : qAsConst(ordered))
        members.next(name) << "\"hide_name\": 0, \"type\": \"FERN_DFF\", \"parameters\": {}, "
                              "\"attributes\": {}, \"port_directions\": {\"D\": \"input\", "
                              "\"Q\": \"output\"}, \"connections\": {\"D\": [ 3 ], \"Q\": [ "
                           << bit++ << " ]}}";
    out << "\n      },\n      \"netnames\": {\n";
    Members nets(out);
    for (int i = 0; i < ordered.size(); i += 32)
        writeVector(nets, ordered.at(i) + QStringLiteral("_next"), 100 + i,
                    qMin(32, ordered.size() - i), "");
    out << "\n      }\n    }\n  }\n}\n";
}
