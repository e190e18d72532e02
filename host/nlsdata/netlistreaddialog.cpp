#include "nlsdata/netlistreader.h"

namespace NlsData {

// Without the dialog for now; the file is replaced by the one that shows it.
Netlist *readNetlistFileWithDialog(QWidget *, const QString &path, QString *error, bool reread)
{
    return readNetlistFile(path, error, reread);
}

} // namespace NlsData
