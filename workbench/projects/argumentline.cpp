#include "workbench/projects/argumentline.h"

#include <algorithm>

namespace Workbench {

namespace {

bool needsQuotes(const QString &argument)
{
    return argument.isEmpty() || std::any_of(argument.begin(), argument.end(), [](QChar c) {
               return c.isSpace() || c == QLatin1Char('"') || c == QLatin1Char('\'');
           });
}

QString quotedArgument(QString argument)
{
    if (!needsQuotes(argument))
        return argument;
    argument.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    argument.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + argument + QLatin1Char('"');
}

} // namespace

QString joinArguments(const QStringList &arguments)
{
    QStringList parts;
    for (const QString &argument : arguments)
        parts.append(quotedArgument(argument));
    return parts.join(QLatin1Char(' '));
}

bool splitArguments(const QString &line, QStringList *arguments)
{
    arguments->clear();
    QString argument;
    bool begun = false;
    QChar quote;
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        const QChar next = i + 1 < line.size() ? line.at(i + 1) : QChar();
        if (quote == QLatin1Char('"') && c == QLatin1Char('\\') &&
            (next == QLatin1Char('"') || next == QLatin1Char('\\'))) {
            argument += next;
            ++i;
        } else if (!quote.isNull() && c == quote) {
            quote = QChar();
        } else if (!quote.isNull()) {
            argument += c;
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            quote = c;
            begun = true;
        } else if (c.isSpace()) {
            if (begun)
                arguments->append(argument);
            argument.clear();
            begun = false;
        } else {
            argument += c;
            begun = true;
        }
    }
    if (begun)
        arguments->append(argument);
    return quote.isNull();
}

} // namespace Workbench
