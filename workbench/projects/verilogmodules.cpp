#include "workbench/projects/verilogmodules.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace Workbench {

namespace {

constexpr qint64 MAXIMUM_BYTES = 1024 * 1024;

QString textOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    QString text = QString::fromUtf8(file.read(MAXIMUM_BYTES));
    static const QRegularExpression quiet(
        QStringLiteral("//[^\\n]*|/\\*.*?\\*/|\"(\\\\.|[^\"\\\\\\n])*\""),
        QRegularExpression::DotMatchesEverythingOption);
    return text.replace(quiet, QStringLiteral(" "));
}

struct Module
{
    bool hasPorts;
    QSet<QString> words; // of its body; among them are the modules that it instantiates
};

void addModules(const QString &text, QHash<QString, Module> *modules)
{
    static const QRegularExpression definition(
        QStringLiteral(
            "\\b(?:module|macromodule)\\s+(?:automatic\\s+|static\\s+)?([A-Za-z_][\\w$]*)"
            "(.*?)\\bendmodule\\b"),
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression noPorts(
        QStringLiteral("^\\s*(#\\s*\\([^;]*\\)\\s*)?(\\(\\s*\\)\\s*)?;"));
    static const QRegularExpression word(QStringLiteral("[A-Za-z_][\\w$]*"));
    auto found = definition.globalMatch(text);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        Module module{!match.captured(2).contains(noPorts), {}};
        auto words = word.globalMatch(match.captured(2));
        while (words.hasNext())
            module.words.insert(words.next().captured());
        modules->insert(match.captured(1), module);
    }
}

} // namespace

QStringList topModulesOf(const QStringList &paths)
{
    QHash<QString, Module> modules;
    for (const QString &path : paths)
        addModules(textOf(path), &modules);
    const bool anyPorts = std::any_of(modules.begin(), modules.end(),
                                      [](const Module &module) { return module.hasPorts; });
    const auto isUsed = [&](const QString &name) {
        for (auto it = modules.begin(); it != modules.end(); ++it) {
            const bool counts = it->hasPorts || !anyPorts;
            if (counts && it.key() != name && it->words.contains(name))
                return true;
        }
        return false;
    };
    QStringList result;
    for (auto it = modules.begin(); it != modules.end(); ++it) {
        if ((it->hasPorts || !anyPorts) && !isUsed(it.key()))
            result.append(it.key());
    }
    result.sort();
    return result;
}

} // namespace Workbench
