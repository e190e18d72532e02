#include "workbench/cli/command.h"

#include "workbench/cli/checkcommand.h"
#include "workbench/cli/coveragecommand.h"
#include "workbench/cli/exportcommand.h"
#include "workbench/cli/namescommand.h"
#include "workbench/cli/scopescommand.h"

#include "host/nlsdata/readcontrol.h"

#include "config/safewrite.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace Workbench {

const QVector<Command> &allCommands()
{
    static const QVector<Command> commands = {
        {"check", "Check configurations against netlist, device and activity files.", runCheck},
        {"coverage", "Tell where the rates of the design's nets come from.", runCoverage},
        {"export", "Write the activity of a configuration for another tool.", runExport},
        {"names", "Review and repair the names in a configuration.", runNames},
        {"scopes", "Find the instances that activity files are of.", runScopes},
    };
    return commands;
}

const Command *findCommand(const QString &name)
{
    const QVector<Command> &commands = allCommands();
    const auto command =
        std::find_if(commands.begin(), commands.end(), [&name](const Command &candidate) {
            return name == QLatin1String(candidate.name);
        });
    return command == commands.end() ? nullptr : command;
}

namespace {

// What the handler of a signal may touch.
std::atomic<NlsData::ReadControl *> stoppable{nullptr};

void onInterrupt(int)
{
    if (NlsData::ReadControl *control = stoppable.exchange(nullptr))
        control->cancel();
    else
        std::_Exit(Interrupted);
}

/// Holds an interrupt back, so that a file in the making is not left behind.
class InterruptBlock
{
public:
    InterruptBlock()
    {
        sigset_t interrupt;
        sigemptyset(&interrupt);
        sigaddset(&interrupt, SIGINT);
        pthread_sigmask(SIG_BLOCK, &interrupt, &m_before);
    }
    ~InterruptBlock() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    Q_DISABLE_COPY(InterruptBlock)

private:
    sigset_t m_before;
};

} // namespace

void exitWhenInterrupted()
{
    // Files are replaced whole, so there is nothing to clean up.
    std::signal(SIGINT, onInterrupt);
}

void stopWhenInterrupted(NlsData::ReadControl *control)
{
    stoppable = control;
}

bool parseArguments(QCommandLineParser *parser, const char *command, const QStringList &arguments,
                    int *status)
{
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Print this help."));
    parser->addOption(help);
    if (!parser->parse(QStringList(QStringLiteral("workbench ") + QLatin1String(command)) +
                       arguments)) {
        *status = badUsage(command, parser->errorText());
        return false;
    }
    if (parser->isSet(help)) {
        QString text = parser->helpText();
        // The parser knows the program's name alone.
        const int at = text.indexOf(QLatin1String("[options]"));
        text.insert(qMax(0, at), QLatin1String(command) + QLatin1Char(' '));
        std::fputs(qPrintable(text), stdout);
        *status = Clean;
        return false;
    }
    return true;
}

bool parseOneFile(QCommandLineParser *parser, const char *command, const QStringList &arguments,
                  QString *file, int *status)
{
    parser->addPositionalArgument(QStringLiteral("FILE.vlr"), QStringLiteral("The configuration."));
    if (!parseArguments(parser, command, arguments, status))
        return false;
    if (parser->positionalArguments().size() != 1) {
        *status = badUsage(command, QStringLiteral("Exactly one configuration is needed."));
        return false;
    }
    *file = parser->positionalArguments().constFirst();
    return true;
}

int badUsage(const char *command, const QString &message)
{
    std::fprintf(stderr, "workbench %s: %s\nTry: workbench %s --help\n", command,
                 qPrintable(message), command);
    return BadUsage;
}

bool writeOutput(const QString &path, const QByteArray &bytes)
{
    if (path.isEmpty()) {
        const bool written =
            std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout) == size_t(bytes.size());
        return written && std::fflush(stdout) == 0;
    }
    QString cause;
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) { // a pipe or a device stays what it is
        QFile file(path);
        if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
            file.write(bytes) == bytes.size())
            return true;
        cause = file.errorString();
    } else {
        const InterruptBlock block;
        const VLT::WriteResult result = VLT::replaceFile(path, bytes);
        if (result.isWritten())
            return true;
        cause = result.cause;
    }
    std::fprintf(stderr, "workbench: cannot write %s: %s\n",
                 qPrintable(QDir::toNativeSeparators(path)), qPrintable(cause));
    return false;
}

} // namespace Workbench
