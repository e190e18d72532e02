#include "support/modaldriver.h"

#include <QtTest>
#include <QtWidgets>

ModalDriver::ModalDriver(Script script)
    : m_script(std::move(script))
    , m_ignored(QApplication::activeModalWidget())
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &ModalDriver::poll);
    m_timer.start();
}

ModalDriver::~ModalDriver()
{
    if (!m_ran)
        QTest::qFail("the expected dialog never came", __FILE__, __LINE__);
}

void ModalDriver::poll()
{
    QPointer<QWidget> dialog = QApplication::activeModalWidget();
    if (!dialog || dialog == m_ignored || m_ran)
        return;
    m_ran = true;
    m_timer.stop();
    if (QApplication::overrideCursor())
        QTest::qFail("a dialog waits for the user under the wait cursor", __FILE__, __LINE__);
    m_title = dialog->windowTitle();
    if (const auto *box = qobject_cast<QMessageBox *>(dialog))
        m_text = box->text();
    m_script(dialog);
    if (dialog && dialog->isVisible())
        dialog->close();
}

ModalDriver::Script pressButton(int button)
{
    return [button](QWidget *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        QAbstractButton *target =
            box ? box->button(static_cast<QMessageBox::StandardButton>(button)) : nullptr;
        if (!target) {
            QTest::qFail("the dialog has no such button", __FILE__, __LINE__);
            return;
        }
        QTest::mouseClick(target, Qt::LeftButton);
    };
}
