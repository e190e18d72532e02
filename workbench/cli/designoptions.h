#pragma once

#include "check/designinput.h"
#include "check/report/report.h"

#include <QCommandLineOption>
#include <QHash>

class QCommandLineParser;

namespace Workbench {

/// The options by which commands are told of the design, and the designs that they name. Without
/// options the design of a file is that of the only project in the file's folder.
class DesignOptions
{
public:
    /// Adds the options to `parser`, which must outlive the object.
    explicit DesignOptions(QCommandLineParser *parser);

    /// The design for the configuration at `path`. A netlist is read once. What cannot be read
    /// becomes a finding, as does a missing netlist.
    const Check::DesignInput &designFor(const QString &path);

    /// Whether every design had a netlist, and everything could be read.
    bool isComplete() const { return m_complete; }

    /// Prints why there is no netlist on standard error, and returns Unreadable.
    int reportFailures(const char *command) const;

    const QVector<Check::InputFile> &inputs() const { return m_inputs; }
    const QVector<Check::Finding> &findings() const { return m_findings; }

private:
    QString projectFor(const QString &path) const;
    void readProject(const QString &project, Check::DesignInput *design);
    void readNetlist(Check::DesignInput *design);
    void addInput(const QString &path);
    void fail(const QString &path, const QString &message);

    QCommandLineParser *const m_parser;
    const QCommandLineOption m_project;
    const QCommandLineOption m_netlist;
    const QCommandLineOption m_device;
    QHash<QString, Check::DesignInput> m_designs; // by project
    QVector<Check::InputFile> m_inputs;
    QVector<Check::Finding> m_findings;
    bool m_complete = true;
};

} // namespace Workbench
