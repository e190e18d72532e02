#include "widgets/plainmessage.h"

#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QTextEdit>

#include <cmath>

namespace VLT {

namespace {

constexpr int TEXT_WIDTH = 560;  // of a text that is wrapped anywhere, in pixels
constexpr int TEXT_HEIGHT = 400; // beyond which it scrolls

QLabel *label(const QMessageBox *box, const char *name)
{
    return box->findChild<QLabel *>(QLatin1String(name));
}

/// Whether a piece of `text` without white space is too wide for a message box.
bool hasWidePiece(const QString &text, const QFontMetrics &metrics)
{
    static const QRegularExpression space(QStringLiteral("\\s+"));
    const QVector<QStringRef> pieces = text.splitRef(space);
    return std::any_of(pieces.begin(), pieces.end(), [&metrics](const QStringRef &piece) {
        return metrics.horizontalAdvance(piece.toString()) > TEXT_WIDTH;
    });
}

/// A label wraps only between words and clips longer text, so another widget replaces
/// it.
void wrapAnywhere(QMessageBox *box, QLabel *original)
{
    auto *layout = qobject_cast<QGridLayout *>(box->layout());
    if (!layout || !hasWidePiece(original->text(), original->fontMetrics()))
        return;
    auto *edit = new QTextEdit(box);
    edit->setPlainText(original->text());
    edit->setReadOnly(true);
    edit->setFocusPolicy(Qt::ClickFocus);
    edit->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    edit->setFrameShape(QFrame::NoFrame);
    edit->viewport()->setAutoFillBackground(false);
    edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->document()->setDocumentMargin(0);
    edit->document()->setTextWidth(TEXT_WIDTH);
    const int height = int(std::ceil(edit->document()->size().height()));
    edit->setFixedSize(TEXT_WIDTH, qMin(height, TEXT_HEIGHT));
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    layout->getItemPosition(layout->indexOf(original), &row, &column, &rows, &columns);
    layout->removeWidget(original);
    layout->addWidget(edit, row, column, rows, columns);
    // Kept for the box's text() and its copy command.
    original->hide();
}

} // namespace

QMessageBox *newMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                        const QString &text, QMessageBox::StandardButtons buttons,
                        QMessageBox::StandardButton defaultButton)
{
    auto *box = new QMessageBox(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(defaultButton);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    wrapAnywhere(box, label(box, "qt_msgbox_label"));
    return box;
}

void setDetail(QMessageBox *box, const QString &detail)
{
    box->setInformativeText(detail);
    QLabel *shown = label(box, "qt_msgbox_informativelabel");
    shown->setTextFormat(Qt::PlainText);
    shown->setTextInteractionFlags(box->textInteractionFlags());
    wrapAnywhere(box, shown);
}

QMessageBox::StandardButton runMessage(QMessageBox *box)
{
    const QPointer<QMessageBox> self(box);
    const int pressed = box->exec();
    delete self.data();
    return static_cast<QMessageBox::StandardButton>(pressed);
}

QMessageBox::StandardButton showMessage(QMessageBox::Icon icon, QWidget *parent,
                                        const QString &title, const QString &text,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton defaultButton)
{
    return runMessage(newMessage(icon, parent, title, text, buttons, defaultButton));
}

} // namespace VLT
