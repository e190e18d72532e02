#include "designdata.h"
#include "measure.h"
#include "suite.h"
#include "works.h"

#include "check/activity/scoperanking.h"
#include "check/activity/togglecounter.h"
#include "check/names/designnames.h"
#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"

#include <QFile>
#include <QTemporaryDir>

#include <string>

using namespace Check;

namespace {

/// Identifier codes as simulators count them: all of one letter, of two, and so on.
QByteArray codeOf(int number)
{
    QByteArray code;
    for (++number; number > 0; number = (number - 1) / 94)
        code += char('!' + (number - 1) % 94);
    return code;
}

void writeFile(const QString &path, const QByteArray &bytes, qint64 hole = 0)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write the generated data");
    if (hole == 0)
        return;
    // The kind of a file is told by its first block. Nothing reads what is behind that, so that it
    // need not be on the disk.
    const QByteArray block(1 << 20, '\n');
    if (file.write(block) < 0 || !file.seek(file.pos() + hole) || file.write("\n#1000\n") < 0)
        qFatal("cannot write the generated data");
}

/// Definitions of scalars and vectors in modules of a hundred.
QByteArray definitions(int variables)
{
    QByteArray text = "$timescale 1ps $end\n$scope module tb $end\n";
    for (int i = 0; i < variables; ++i) {
        if (i % 100 == 0)
            text += "$scope module u_" + QByteArray::number(i / 100) + " $end\n";
        const QByteArray head = i % 4 == 0 ? "$var wire 8 " : "$var reg 1 ";
        const QByteArray tail = i % 4 == 0 ? " [7:0] $end\n" : " $end\n";
        text += head + codeOf(i) + " signal_" + QByteArray::number(i) + tail;
        if (i % 100 == 99)
            text += "$upscope $end\n";
    }
    return text + "$upscope $end\n$enddefinitions $end\n#0\n";
}

QByteArray saif(int nets)
{
    QByteArray text = "(SAIFILE (SAIFVERSION \"2.0\") (DIRECTION \"backward\") (DIVIDER /)\n"
                      "(TIMESCALE 1 ps) (DURATION 1000)\n(INSTANCE tb\n";
    for (int i = 0; i < nets; ++i) {
        if (i % 100 == 0)
            text += "(INSTANCE u_" + QByteArray::number(i / 100) + " (NET\n";
        text += " (signal_" + QByteArray::number(i) + "\\[3\\] (T0 500) (T1 500) (TX 0) (TC " +
                QByteArray::number(i % 977) + ") (IG 0))\n";
        if (i % 100 == 99)
            text += "))\n";
    }
    return text + "))\n";
}

/// Values of scalars and bytes, in steps of time.
QByteArray values(int variables, qint64 size)
{
    QByteArray text;
    text.reserve(int(size) + 100);
    quint32 random = 1;
    for (int time = 1; text.size() < size; ++time) {
        text += '#' + QByteArray::number(time) + '\n';
        for (int i = 0; i < 50; ++i) {
            random = random * 1664525 + 1013904223;
            const int variable = int((random >> 8) % quint32(variables));
            const char bit = char('0' + (random >> 7) % 2);
            if (variable % 4 == 0)
                text += "b10" + QByteArray::number(random >> 28, 2) + ' ';
            else
                text += bit;
            text += codeOf(variable) + '\n';
        }
    }
    return text;
}

/// The least that any reader does: finds the words of a file, and with `codes` what they are of.
class BareScan
{
public:
    explicit BareScan(const QString &path)
        : m_file(path)
    {
        if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            qFatal("cannot read the generated data");
    }

    template<typename Use>
    void forEachWord(bool parentheses, const Use &use)
    {
        QByteArray block;
        std::string rest;
        while (!(block = m_file.read(1 << 20)).isEmpty()) {
            const char *p = block.constData();
            const char *end = p + block.size();
            while (p < end) {
                const char *begin = p;
                while (p < end && uchar(*p) > ' ' && !(parentheses && (*p == '(' || *p == ')')))
                    ++p;
                if (p == end) {
                    rest.append(begin, size_t(end - begin));
                } else if (!rest.empty()) {
                    rest.append(begin, size_t(p - begin));
                    use(std::string_view(rest));
                    rest.clear();
                } else if (p > begin) {
                    use(std::string_view(begin, size_t(p - begin)));
                }
                ++p;
            }
        }
    }

private:
    QFile m_file;
};

double scan(const QString &path, bool parentheses)
{
    size_t size = 0;
    const double time = seconds([&] {
        BareScan(path).forEachWord(parentheses,
                                   [&](std::string_view word) { size += word.size(); });
    });
    return size > 0 ? time : 0;
}

double readDefinitions(const QString &path)
{
    std::shared_ptr<const ActivityFile> file;
    const double time = seconds([&] { file = readActivityFile(path); });
    if (!file->isUsable() || file->declarations.variables().empty())
        qFatal("%s", qPrintable(file->error));
    return time;
}

/// A counter that knows nothing but the last value of each code.
double countBare(const QString &path)
{
    std::vector<std::string> last(1 << 24);
    std::vector<quint64> toggles(1 << 24);
    quint64 sum = 0;
    const double time = seconds([&] {
        std::string vector;
        BareScan(path).forEachWord(false, [&](std::string_view word) {
            if (word.front() == '#' || word.front() == '$')
                return;
            if (word.front() == 'b') {
                vector.assign(word.data() + 1, word.size() - 1);
                return;
            }
            const bool isVector = !vector.empty();
            const std::string_view value = isVector ? std::string_view(vector) : word.substr(0, 1);
            const std::string_view code = isVector ? word : word.substr(1);
            quint32 number = 0;
            for (size_t i = code.size(); i-- > 0;)
                number = number * 94 + quint32(code[i] - '!' + 1);
            std::string &before = last[number % last.size()];
            for (size_t i = 0; i < value.size(); ++i)
                toggles[number % last.size()] += i < before.size() && before[i] != value[i];
            before.assign(value);
            vector.clear();
        });
        for (const quint64 count : toggles)
            sum += count;
    });
    return sum > 0 ? time : 0;
}

double countFull(const QString &path)
{
    const auto file = readActivityFile(path);
    const std::vector<bool> wanted(file->declarations.signalCount(), true);
    return seconds([&] {
        if (!countToggles(*file, wanted, {}).error.isEmpty())
            qFatal("the product cannot count the generated data");
    });
}

std::unique_ptr<NlsData::Netlist> readDesign(const QString &path)
{
    NlsData::ReadOptions options;
    options.allNames = true;
    QString error;
    auto netlist = NlsData::readNetlist(path, &error, options);
    if (!netlist)
        qFatal("%s", qPrintable(error));
    return netlist;
}

void rankingWork(Suite &suite, const QTemporaryDir &folder)
{
    const int nets = suite.scaled(1000000);
    const QString path = folder.filePath(QStringLiteral("netlist.json"));
    writeNetlist(path, nets);
    const std::shared_ptr<NlsData::Netlist> netlist = readDesign(path);
    const DesignNames names(*netlist);
    QByteArray text = "$scope module tb $end $scope module dut $end\n";
    int code = 0;
    names.nets().forEachNet([&](NlsData::Net *net) {
        text += "$var wire 1 " + codeOf(code++) + ' ' + net->path().toUtf8() + " $end\n";
    });
    const QString dump = folder.filePath(QStringLiteral("dump.vcd"));
    writeFile(dump, text + "$upscope $end $upscope $end $enddefinitions $end\n#0\n#1\n");
    const auto file = readActivityFile(dump);
    suite.compare(
        QStringLiteral("rank the scopes of a dump of %1 nets, against reading the netlist")
            .arg(code),
        [&] { return seconds([&] { readDesign(path); }); },
        [&] {
            return seconds([&] {
                const DesignTree design(*netlist, names.nets());
                if (rankScopes(*file, design).verdict != ScopeVerdict::Fits)
                    qFatal("the generated dump does not fit");
            });
        },
        1.0, 3);
}

} // namespace

double activityPeak(const QString &path)
{
    std::shared_ptr<const ActivityFile> kept;
    return peakBytes([&] { kept = readActivityFile(path); });
}

void activityWork(Suite &suite)
{
    const QTemporaryDir folder;
    const int variables = suite.scaled(200000);
    const QString header = folder.filePath(QStringLiteral("header.vcd"));
    writeFile(header, definitions(variables));
    suite.compare(
        QStringLiteral("VCD definitions of %1 variables").arg(variables),
        [&] { return scan(header, false); }, [&] { return readDefinitions(header); }, 3);
    const QString files[] = {folder.filePath(QStringLiteral("100.vcd")),
                             folder.filePath(QStringLiteral("2000.vcd"))};
    writeFile(files[0], definitions(variables), 100000000);
    writeFile(files[1], definitions(variables), 2000000000);
    suite.compare(
        QStringLiteral("the same with 2 GB behind them, against 100 MB"),
        [&] { return readDefinitions(files[0]); }, [&] { return readDefinitions(files[1]); }, 1.1,
        Suite::MANY);
    const int bits = suite.scaled(1000000);
    const QString many = folder.filePath(QStringLiteral("many.vcd"));
    QByteArray text;
    qint64 names = 0;
    for (int i = 0; i < bits; ++i) {
        const QByteArray name = "signal_" + QByteArray::number(i);
        names += name.size();
        text += "$var wire 1 " + codeOf(i) + ' ' + name + " $end\n";
    }
    writeFile(many, text + "$enddefinitions $end\n#0\n");
    suite.memory(
        QStringLiteral("memory of %1 declared bits, against 32 bytes and their names").arg(bits),
        32.0 * bits + double(names), numberFromChild({QStringLiteral("--peak"), many}), 1);
    const QString counts = folder.filePath(QStringLiteral("counts.saif"));
    writeFile(counts, saif(bits));
    suite.compare(
        QStringLiteral("SAIF of %1 nets").arg(bits), [&] { return scan(counts, true); },
        [&] { return readDefinitions(counts); }, 4);
    const qint64 size = suite.scaled(200000000);
    const QString full = folder.filePath(QStringLiteral("full.vcd"));
    writeFile(full, definitions(10000) + values(10000, size));
    suite.compare(
        QStringLiteral("toggles in %1 MB of values").arg(size / 1000000),
        [&] { return countBare(full); }, [&] { return countFull(full); }, 1.5, 3);
    rankingWork(suite, folder);
}
