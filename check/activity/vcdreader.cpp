#include "check/activity/activityreaders.h"

#include <charconv>
#include <string>

namespace Check {

namespace {

/// What a variable of that type is worth.
enum class VariableKind { Bits, Other, Port };

VariableKind variableKind(std::string_view type)
{
    if (type == "wire" || type == "reg" || type == "logic")
        return VariableKind::Bits;
    for (const std::string_view other :
         {"integer", "time", "bit", "tri", "triand", "trior", "trireg", "tri0", "tri1", "wand",
          "wor", "uwire", "supply0", "supply1", "byte", "shortint", "int", "longint", "enum"}) {
        if (type == other)
            return VariableKind::Bits;
    }
    return type == "port" ? VariableKind::Port : VariableKind::Other;
}

std::string_view withoutBackslash(std::string_view name)
{
    return name.size() > 1 && name.front() == '\\' ? name.substr(1) : name;
}

class VcdReader : private BlockInput
{
public:
    VcdReader(QIODevice *device, ActivityFile *file)
        : BlockInput(device)
        , m_file(*file)
        , m_declarations(file->declarations)
    {
    }

    void read()
    {
        std::string_view token;
        bool isEnded = false;
        while (!isEnded && next(&token)) {
            if (token == "$var")
                isEnded = !readVariable();
            else if (token == "$scope")
                isEnded = !readScope();
            else if (token == "$upscope")
                isEnded = !closeScope();
            else if (token == "$timescale")
                isEnded = !readTimescale();
            else if (token == "$enddefinitions") {
                if (skip()) {
                    m_file.valuesAt = offset();
                    return;
                }
                isEnded = true;
            } else if (token == "$end")
                continue;
            else if (token.front() == '$')
                isEnded = !skip();
            else
                throw ActivityError{QStringLiteral("the definitions have a text that is no "
                                                   "keyword"),
                                    tokenOffset()};
        }
        m_file.cutAt = m_file.valuesAt = endOffset();
    }

private:
    /// Passes over what is left of a keyword. False at the end of the file.
    bool skip()
    {
        std::string_view token;
        while (next(&token)) {
            if (token == "$end")
                return true;
        }
        return false;
    }

    bool readScope()
    {
        std::string_view token;
        m_name.clear();
        // The first word is its type.
        for (int word = 0;; ++word) {
            if (!next(&token))
                return false;
            if (token == "$end")
                break;
            if (word > 0)
                m_name += token;
        }
        if (m_scopes.size() >= Declarations::MAXIMUM_DEPTH)
            throw ActivityError{QStringLiteral("scopes nest deeper than 256"), tokenOffset()};
        const std::string_view name = withoutBackslash(m_name);
        m_scopes.push_back(m_scope);
        if (!name.empty())
            m_scope = m_declarations.scope(m_scope, name);
        return true;
    }

    bool closeScope()
    {
        if (!m_scopes.empty()) {
            m_scope = m_scopes.back();
            m_scopes.pop_back();
        }
        return skip();
    }

    bool readTimescale()
    {
        std::string_view token;
        QString text;
        while (next(&token)) {
            if (token == "$end") {
                m_file.timescale = parseTimescale(text);
                return true;
            }
            text += QString::fromUtf8(token.data(), int(token.size()));
        }
        return false;
    }

    /// Type, size and code are one word each, whatever they are; then come the name and ranges.
    bool readVariable()
    {
        std::string_view token;
        if (!next(&token))
            return false;
        const qint64 begin = tokenOffset();
        const VariableKind kind = variableKind(token);
        if (kind == VariableKind::Port)
            throw ActivityError{QStringLiteral("it is an extended VCD (of ports)"), begin};
        if (kind == VariableKind::Other) {
            ++m_file.otherVariables;
            // The code may read "$end".
            return next(&token) && next(&token) && skip();
        }
        if (!next(&token))
            return false;
        qint64 width = 0;
        const auto [stop, error] =
            std::from_chars(token.data(), token.data() + token.size(), width);
        const bool isNumber = stop == token.data() + token.size();
        if (error == std::errc::result_out_of_range || width > Declarations::MAXIMUM_WIDTH)
            throw ActivityError{QStringLiteral("a variable has more than 2^20 bits"),
                                tokenOffset()};
        if (!isNumber || error != std::errc() || width < 1)
            throw ActivityError{QStringLiteral("the size of a variable is no number from 1 on"),
                                tokenOffset()};
        if (!next(&token))
            return false;
        const quint32 signal = m_file.codes.add(token);
        if (!next(&token))
            return false;
        if (token == "$end")
            throw ActivityError{QStringLiteral("a variable has no name"), tokenOffset()};
        m_name = withoutBackslash(token);
        m_ranges.clear();
        for (;;) {
            if (!next(&token))
                return false;
            if (token == "$end")
                break;
            if (m_ranges.size() + token.size() > MAXIMUM_TOKEN)
                throw ActivityError{QStringLiteral("a reference is longer than 1 MiB"),
                                    tokenOffset()};
            m_ranges += token;
        }
        const Reference reference = parseReference(m_name, m_ranges, width);
        if (!m_declarations.addVariable(m_scope, reference, width, signal))
            throw ActivityError{QStringLiteral("it declares more than 50 million bits"), begin};
        return true;
    }

    ActivityFile &m_file;
    Declarations &m_declarations;
    std::vector<quint32> m_scopes; ///< that are open, the root first
    quint32 m_scope = 0;
    std::string m_name;
    std::string m_ranges;
};

} // namespace

void readVcdDefinitions(QIODevice *device, ActivityFile *file)
{
    VcdReader(device, file).read();
}

} // namespace Check
