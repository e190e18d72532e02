#pragma once

#include "check/designinput.h"

#include <QString>

#include <mutex>

namespace NlsData {
class ReadControl;
}

namespace Workbench {

/// The netlist that all checks of the window share, with all of its names. It is apart from those
/// of the views, which may go at any moment. Calls from several threads are safe.
class SharedDesign
{
public:
    /// The design on `device`, with the netlist at `path`, which is read unless it is there. Waits
    /// while another thread reads it. `control` is borrowed; null: nobody watches.
    Check::DesignInput get(const QString &path, const QString &device,
                           NlsData::ReadControl *control);

    /// Reads the netlist anew when it is asked for next. Whoever has it keeps it.
    void drop();

private:
    std::mutex m_reading; // held while reading
    std::mutex m_mutex;   // of what follows
    Check::DesignInput m_design;
    int m_generation = 0; // of drop()
};

} // namespace Workbench
