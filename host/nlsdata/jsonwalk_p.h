#pragma once

// All parser errors are handled by JsonWalk.
#define SIMDJSON_EXCEPTIONS 0
#include <simdjson.h>

#include <QString>

#include <string_view>

namespace NlsData {

namespace ondemand = simdjson::ondemand;

/// A text of the file shortened for a message, to at most a line.
QString quoted(std::string_view text);

/// Reads values from a JSON text front to back, and throws ReadError with the cause if they are not
/// of the requested type. Views point into the text or the parser's buffers.
class JsonWalk
{
protected:
    JsonWalk() = default;
    virtual ~JsonWalk() = default;

    /// The current place in the design, as the end of a sentence.
    virtual QString place() const = 0;

    void start(std::string_view text) { m_text = text; }
    std::string_view text() const { return m_text; }

    [[noreturn]] void refuse(const QString &cause) const;
    [[noreturn]] void fail(simdjson::error_code error, const char *what) const;
    void check(simdjson::error_code error, const char *what) const
    {
        if (Q_UNLIKELY(error))
            fail(error, what);
    }

    template<typename T>
    T take(simdjson::simdjson_result<T> result, const char *what) const
    {
        check(result.error(), what);
        return std::move(result).value_unsafe();
    }
    ondemand::object object(ondemand::value value, const char *what) const;
    ondemand::array array(ondemand::value value, const char *what) const;
    std::string_view string(ondemand::value value, const char *what) const;
    std::string_view key(ondemand::field &field) const;

    /// Skips a value that is not needed, and checks that it is JSON.
    void skip(ondemand::value value, int depth = 0) const;

private:
    std::string_view m_text;
};

} // namespace NlsData
