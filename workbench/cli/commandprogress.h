#pragma once

#include "host/nlsdata/readcontrol.h"

namespace Workbench {

/// Long work of a command: how far it is, on standard error where that is a terminal. During its
/// lifetime an interrupt (Ctrl+C) ends the work alone, so that nothing is left half done; a second
/// one ends the process. One at a time.
class CommandProgress : public NlsData::ReadControl
{
public:
    /// `what` is shown before the percentage; a literal.
    explicit CommandProgress(const char *what);
    /// Takes the line away again.
    ~CommandProgress() override;

    void report(int permille) override;

private:
    const char *const m_what;
    const bool m_isShown;
    int m_percent = -1;
};

} // namespace Workbench
