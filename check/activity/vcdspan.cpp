#include "check/activity/activityreaders.h"

#include <QIODevice>

#include <charconv>
#include <optional>

namespace Check {

namespace {

std::optional<double> timeStamp(std::string_view token)
{
    quint64 ticks = 0;
    const char *end = token.data() + token.size();
    if (token.size() < 2 || token.front() != '#')
        return std::nullopt;
    const auto [stop, error] = std::from_chars(token.data() + 1, end, ticks);
    return error == std::errc() && stop == end ? std::optional<double>(double(ticks))
                                               : std::nullopt;
}

bool isLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

/// Where the last time stamp is that begins a line of `text`, and is followed by a blank.
std::optional<qint64> lastInLines(std::string_view text)
{
    for (size_t at = text.rfind('#'); at != std::string_view::npos && at > 0;
         at = text.rfind('#', at - 1)) {
        if (!isLineEnd(text[at - 1]))
            continue;
        const size_t end = text.find_first_of(" \t\r\n", at);
        if (end != std::string_view::npos && timeStamp(text.substr(at, end - at)))
            return qint64(at);
    }
    return std::nullopt;
}

/// A place from which the last time stamp is found by reading on; near the end when the file is
/// written in lines.
qint64 nearLast(QIODevice *device, qint64 begin)
{
    constexpr qint64 longest = 32; // of a time stamp
    qint64 size = 1 << 16;
    for (qint64 end = device->size(); end > begin;) {
        const qint64 from = qMax(begin, end - size);
        device->seek(from);
        const QByteArray bytes = device->read(end - from);
        if (const auto at = lastInLines({bytes.constData(), size_t(bytes.size())}))
            return from + *at;
        if (from == begin)
            break;
        end = from + longest;
        size = BlockInput::BLOCK;
    }
    return begin;
}

/// Calls `use` with every time stamp, until it returns false. The code behind the value of a vector
/// may look like one. Values that come before the first one are at time 0.
template<typename Use>
void forEachTime(QIODevice *device, qint64 begin, const Use &use)
{
    device->seek(begin);
    BlockInput input(device);
    std::string_view token;
    bool isFirst = true;
    while (input.next(&token)) {
        const bool isOpen = input.tokenOffset() + qint64(token.size()) == device->size();
        const std::optional<double> time = timeStamp(token);
        const bool isVector =
            !time && std::string_view("bBrRsS").find(token.front()) != std::string_view::npos;
        if (token == "$comment") {
            while (input.next(&token) && token != "$end") {
            }
            continue;
        }
        const bool isValue = !time && token.front() != '$';
        // A number that the file ends in may be cut short.
        if ((time && !isOpen) || (isFirst && isValue)) {
            isFirst = false;
            if (!use(time.value_or(0)))
                return;
        }
        if (isVector)
            input.next(&token);
    }
}

bool endsWithLine(QIODevice *device)
{
    char last = 0;
    return device->seek(device->size() - 1) && device->read(&last, 1) == 1 && uchar(last) <= ' ';
}

} // namespace

void readVcdSpan(QIODevice *device, ActivityFile *file)
{
    if (file->cutAt >= 0)
        return;
    forEachTime(device, file->valuesAt, [&](double time) {
        file->first = file->last = time;
        file->hasSpan = true;
        return false;
    });
    if (!file->hasSpan || !endsWithLine(device))
        file->cutAt = device->size();
    if (!file->hasSpan)
        return;
    forEachTime(device, nearLast(device, file->valuesAt), [file](double time) {
        file->last = qMax(file->last, time);
        return true;
    });
}

} // namespace Check
