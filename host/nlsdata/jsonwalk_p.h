#pragma once

// Every error of the parser passes through JsonWalk, none is thrown past it.
#define SIMDJSON_EXCEPTIONS 0
#include <simdjson.h>

#include <QString>

#include <string_view>

namespace NlsData {

namespace ondemand = simdjson::ondemand;

/// A text of the file as it may stand in a message: not longer than a line.
QString quoted(std::string_view text);

/// Takes values out of a JSON text front to back, and throws ReadError with a cause in words when
/// they are not what the caller asks for. Views point into the text or the parser's buffers.
class JsonWalk
{
protected:
    JsonWalk() = default;
    virtual ~JsonWalk() = default;

    /// Where in the design the walk is, as the end of a sentence.
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

    /// Passes over a value that is not needed, and makes sure that it is JSON.
    void skip(ondemand::value value, int depth = 0) const;

private:
    std::string_view m_text;
};

} // namespace NlsData
