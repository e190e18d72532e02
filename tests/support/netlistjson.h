#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <deque>

/// Builds netlists in the JSON form that the synthesis tool writes, in the order of the calls:
///
///     NetlistJson json;
///     json.module("top").top()
///         .port("clk", "input", {2})
///         .port("q", "output", {3, 4})
///         .cell("ff", "SB_DFF", {{"C", "input", {2}}, {"Q", "output", {3}}})
///         .net("n1", {5}).generatedNet("$abc$1", {6});
///     QVERIFY(json.write(path));
class NetlistJson
{
public:
    /// A bit of a net, by its number, or a constant.
    struct Bit
    {
        Bit(int number)
            : text(QByteArray::number(number))
        {
        }
        Bit(const char *constant)
            : text('"' + QByteArray(constant) + '"')
        {
        }
        QByteArray text;
    };
    using Bits = QList<Bit>;

    /// A connection of a cell; a direction of null is left out.
    struct Pin
    {
        const char *port;
        const char *direction;
        Bits bits;
    };

    class Module
    {
    public:
        Module &top() { return attribute("top", "00000000000000000000000000000001"); }
        Module &blackbox() { return attribute("blackbox", "00000000000000000000000000000001"); }
        Module &attribute(const QByteArray &name, const QByteArray &text);

        /// A port and the net of its name; a non-zero `offset` makes it a vector of at least one
        /// bit, `upto` reverses its direction.
        Module &port(const QByteArray &name, const char *direction, const Bits &bits,
                     int offset = 0, bool upto = false);
        Module &cell(const QByteArray &name, const QByteArray &type, const QList<Pin> &pins = {});
        Module &net(const QByteArray &name, const Bits &bits, int offset = 0, bool upto = false);
        Module &generatedNet(const QByteArray &name, const Bits &bits);

    private:
        friend class NetlistJson;
        Module &addNet(const QByteArray &name, const Bits &bits, bool generated,
                       const QByteArray &shape);

        QByteArray m_name, m_attributes, m_ports, m_cells, m_nets;
    };

    /// Adds a module; the reference stays valid.
    Module &module(const QByteArray &name);

    QByteArray toUtf8() const;
    bool write(const QString &path) const;

private:
    std::deque<Module> m_modules;
};
