#include "jsonwalk_p.h"

#include "readcontrol.h"

#include <algorithm>
#include <cstring>

namespace NlsData {

constexpr int MAXIMUM_NESTING = 64;

QString quoted(std::string_view text)
{
    return QString::fromUtf8(text.data(), int(std::min<size_t>(text.size(), 200)));
}

void JsonWalk::refuse(const QString &cause) const
{
    throw ReadError{cause};
}

void JsonWalk::fail(simdjson::error_code error, const char *what) const
{
    switch (error) {
    case simdjson::INCORRECT_TYPE:
    case simdjson::NUMBER_OUT_OF_RANGE:
        refuse(QStringLiteral("not a netlist: unexpected value for '%1'%2")
                   .arg(QLatin1String(what), place()));
    case simdjson::EMPTY:
        refuse(QStringLiteral("the file is empty"));
    case simdjson::UTF8_ERROR:
        refuse(QStringLiteral("not valid UTF-8"));
    case simdjson::MEMALLOC:
        refuse(QStringLiteral("not enough memory"));
    case simdjson::CAPACITY:
        refuse(QStringLiteral("the file is larger than 4 GiB"));
    case simdjson::UNCLOSED_STRING:
    case simdjson::INCOMPLETE_ARRAY_OR_OBJECT:
        refuse(QStringLiteral("incomplete JSON%1; the file may be truncated").arg(place()));
    default:
        refuse(QStringLiteral("not valid JSON%1").arg(place()));
    }
}

ondemand::object JsonWalk::object(ondemand::value value, const char *what) const
{
    return take(value.get_object(), what);
}

ondemand::array JsonWalk::array(ondemand::value value, const char *what) const
{
    return take(value.get_array(), what);
}

std::string_view JsonWalk::string(ondemand::value value, const char *what) const
{
    const std::string_view token = value.raw_json_token();
    if (token.empty() || token.front() != '"')
        fail(simdjson::INCORRECT_TYPE, what);
    const char *begin = token.data() + 1;
    const auto *end = static_cast<const char *>(std::memchr(begin, '"', token.size() - 1));
    if (!end || std::memchr(begin, '\\', size_t(end - begin)))
        return take(value.get_string(), what);
    check(value.get_raw_json_string().error(), what);
    return {begin, size_t(end - begin)};
}

std::string_view JsonWalk::key(ondemand::field &field) const
{
    const char *begin = field.key().raw();
    const auto *end = static_cast<const char *>(
        std::memchr(begin, '"', size_t(m_text.data() + m_text.size() - begin)));
    if (end && !std::memchr(begin, '\\', size_t(end - begin)))
        return {begin, size_t(end - begin)};
    return take(field.unescaped_key(), "name");
}

void JsonWalk::skip(ondemand::value value, int depth) const
{
    if (depth > MAXIMUM_NESTING)
        refuse(QStringLiteral("nested too deeply%1").arg(place()));
    switch (take(value.type(), "value")) {
    case ondemand::json_type::object:
        for (auto field : object(value, "value"))
            skip(take(field, "value").value(), depth + 1);
        break;
    case ondemand::json_type::array:
        for (auto element : array(value, "value"))
            skip(take(element, "value"), depth + 1);
        break;
    case ondemand::json_type::string:
        check(value.get_raw_json_string().error(), "value");
        break;
    case ondemand::json_type::number:
        check(value.get_double().error(), "value");
        break;
    case ondemand::json_type::boolean:
        check(value.get_bool().error(), "value");
        break;
    case ondemand::json_type::null:
        if (!take(value.is_null(), "value"))
            fail(simdjson::TAPE_ERROR, "value");
        break;
    }
}

} // namespace NlsData
