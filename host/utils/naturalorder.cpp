#include "host/utils/naturalorder.h"

namespace Utils {

namespace {

bool isDigit(const QString &text, int at)
{
    return at < text.size() && text.at(at) >= QLatin1Char('0') && text.at(at) <= QLatin1Char('9');
}

/// The digits from `*at` on without leading zeros; moves `*at` behind them.
QStringRef takeNumber(const QString &text, int *at)
{
    while (isDigit(text, *at) && text.at(*at) == QLatin1Char('0'))
        ++*at;
    const int begin = *at;
    while (isDigit(text, *at))
        ++*at;
    return text.midRef(begin, *at - begin);
}

} // namespace

bool naturalLess(const QString &a, const QString &b)
{
    int i = 0;
    int j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a, i) && isDigit(b, j)) {
            const QStringRef left = takeNumber(a, &i);
            const QStringRef right = takeNumber(b, &j);
            if (left.size() != right.size())
                return left.size() < right.size();
            if (const int order = left.compare(right))
                return order < 0;
        } else {
            if (a.at(i) != b.at(j))
                return a.at(i) < b.at(j);
            ++i;
            ++j;
        }
    }
    const int restA = a.size() - i;
    const int restB = b.size() - j;
    return restA != restB ? restA < restB : a < b;
}

} // namespace Utils
