#include "windowtest.h"

#include "core/iview.h"
#include "host/core/ifileopener.h"

#include <QtTest>

void WindowTest::initTestCase()
{
    m_host = std::make_unique<TestHost>();
    const QDir real(QStringLiteral(VLT_PLUGIN_DIR));
    const QStringList libraries = real.entryList({QStringLiteral("*.so")}, QDir::Files);
    QCOMPARE(libraries.size(), 2);
    for (const QString &library : libraries)
        QVERIFY(QFile::link(real.filePath(library), m_plugins.filePath(library)));
    QFile broken(m_plugins.filePath(QStringLiteral("libbroken.so")));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("this is no library");
    broken.close();
    m_session = std::make_unique<Workbench::Session>(m_plugins.path());
    m_host.reset();
}

void WindowTest::init()
{
    m_host = std::make_unique<TestHost>();
    window().show();
    QVERIFY(QTest::qWaitForWindowExposed(&window()));
    window().activateWindow();
}

void WindowTest::cleanup()
{
    if (!QTest::currentTestFailed())
        QVERIFY(!QApplication::activeModalWidget());
    m_host.reset();
}

void WindowTest::cleanupTestCase()
{
    m_session.reset();
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

Core::IView *WindowTest::openView(const QString &name, const QByteArray &bytes)
{
    const QString path = m_host->write(name, bytes);
    window().open(path);
    Core::IView *view = Core::IFileOpener::forFile(path)->view(path);
    if (!view)
        QTest::qFail("the file does not open", __FILE__, __LINE__);
    return view;
}
