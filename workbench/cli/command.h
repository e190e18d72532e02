#pragma once

#include <QStringList>

class QCommandLineParser;

namespace NlsData {
class ReadControl;
}

namespace Workbench {

/// Exit statuses of the commands.
enum ExitStatus {
    Clean = 0,
    HasFindings = 1,
    BadUsage = 2,
    Unreadable = 3, ///< an input cannot be read
    Interrupted = 130
};

/// A command of the program, called by its name as first argument. Needs no display and no plug-in.
struct Command
{
    const char *name;
    const char *summary; ///< for the program's help
    /// Runs with the arguments behind the name.
    int (*run)(const QStringList &arguments);
};

/// All commands, in the order of the help.
const QVector<Command> &allCommands();

/// The command called exactly `name`; null when there is none.
const Command *findCommand(const QString &name);

/// From here on, an interrupt (Ctrl+C) ends the process with the status Interrupted.
void exitWhenInterrupted();

/// From here on, an interrupt cancels `control` instead, once; null: it ends the process again.
/// `control` is borrowed.
void stopWhenInterrupted(NlsData::ReadControl *control);

/// Parses the arguments of a command. Prints help or what is wrong; then false, with the exit
/// status in `status`.
bool parseArguments(QCommandLineParser *parser, const char *command, const QStringList &arguments,
                    int *status);

/// The same for a command that takes exactly one configuration, which goes into `file`.
bool parseOneFile(QCommandLineParser *parser, const char *command, const QStringList &arguments,
                  QString *file, int *status);

/// Prints one sentence on standard error, and returns BadUsage.
int badUsage(const char *command, const QString &message);

/// Writes to the file `path`, whole or not at all, or to standard output when it is empty. False
/// after a failure, which was reported on standard error.
bool writeOutput(const QString &path, const QByteArray &bytes);

} // namespace Workbench
