#include "workbench/cli/commandprogress.h"

#include "workbench/cli/command.h"

#include <cstdio>
#include <unistd.h>

namespace Workbench {

CommandProgress::CommandProgress(const char *what)
    : m_what(what)
    , m_isShown(isatty(STDERR_FILENO) == 1)
{
    stopWhenInterrupted(this);
}

CommandProgress::~CommandProgress()
{
    stopWhenInterrupted(nullptr);
    if (m_isShown && m_percent >= 0)
        std::fputs("\r\033[K", stderr);
}

void CommandProgress::report(int permille)
{
    ReadControl::report(permille);
    if (!m_isShown || permille / 10 == m_percent)
        return;
    m_percent = permille / 10;
    std::fprintf(stderr, "\r%s: %d %%", m_what, m_percent);
    std::fflush(stderr);
}

} // namespace Workbench
