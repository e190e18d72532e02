#include "document/saving.h"

#include "config/safewrite.h"
#include "document/vltview.h"
#include "widgets/plainmessage.h"
#include "widgets/waitcursor.h"

#include <QDir>

namespace VLT {

bool saveBytes(const QString &path, const QByteArray &bytes, QWidget *view)
{
    const WriteResult result = [&] {
        const WaitCursor wait;
        return replaceFile(path, bytes);
    }();
    if (result.isWritten())
        return true;
    const QString problem = result.outcome == WriteResult::CannotOpen
                                ? VLTView::tr("Cannot open the config file '%1'!")
                                : VLTView::tr("Cannot write the config file '%1'!");
    QString state = VLTView::tr("The file is as it was.");
    if (result.outcome == WriteResult::CannotRestore)
        state = VLTView::tr(
            "Its old contents could not be put back either: the file is damaged. Keep this "
            "view open, remove the cause and save again.");
    QMessageBox *box = newMessage(QMessageBox::Warning, view, VLTView::tr("Warning"),
                                  problem.arg(QDir::toNativeSeparators(path)));
    setDetail(box, result.cause + QLatin1Char('\n') + state);
    runMessage(box);
    return false;
}

void reportUnwritableText(const QString &path, const QString &text, QWidget *view)
{
    showMessage(
        QMessageBox::Warning, view, VLTView::tr("Warning"),
        VLTView::tr("Cannot write the config file '%1'!\nThe text '%2' has a character that "
                    "such a file cannot hold.")
            .arg(QDir::toNativeSeparators(path), text));
}

} // namespace VLT
