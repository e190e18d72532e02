#include "workbench/projects/synthesistemplate.h"

#include "workbench/projects/projectsettings.h"

#include <QRegularExpression>

#include <iterator>

namespace Workbench {

namespace {

// These characters end a word or are special in a script of the synthesis tool.
QString scriptWord(const QString &word)
{
    static const QRegularExpression special(QStringLiteral("[\\s;#\"]"));
    return word.contains(special) ? QLatin1Char('"') + word + QLatin1Char('"') : word;
}

} // namespace

bool isVerilog(const QString &path)
{
    return path.endsWith(QLatin1String(".v"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1String(".sv"), Qt::CaseInsensitive);
}

QStringList commandFrom(const SynthesisTemplate &base, const ProjectSettings &settings)
{
    QString script = QLatin1String(base.command);
    if (!settings.top.isEmpty())
        script += QLatin1String(" -top ") + scriptWord(settings.top);
    script +=
        QLatin1String("; autoname; write_json ") + scriptWord(settings.relative(settings.netlist));
    QStringList command{QStringLiteral("yosys"), QStringLiteral("-p"), script};
    for (const QString &source : settings.sources) {
        if (isVerilog(source))
            command.append(settings.relative(source));
    }
    return command;
}

int templateOf(const ProjectSettings &settings)
{
    for (size_t i = 0; i < std::size(SYNTHESIS_TEMPLATES); ++i) {
        if (settings.command == commandFrom(SYNTHESIS_TEMPLATES[i], settings))
            return int(i);
    }
    return -1;
}

} // namespace Workbench
