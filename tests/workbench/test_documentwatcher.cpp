#include "workbench/documentwatcher.h"

#include <QSaveFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using Workbench::DocumentWatcher;

class TestDocumentWatcher : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void tellsForeignChanges();
    void takesOwnWritesAsKnown();
    void followsReplacedAndRemovedFiles();

private:
    void write(const QByteArray &bytes) const;
    void replace(const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TestDocumentWatcher::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("a.vlr"));
    write("one");
}

void TestDocumentWatcher::write(const QByteArray &bytes) const
{
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// As editors do that never leave half a file.
void TestDocumentWatcher::replace(const QByteArray &bytes) const
{
    QSaveFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    QVERIFY(file.commit());
}

void TestDocumentWatcher::tellsForeignChanges()
{
    DocumentWatcher watcher;
    QSignalSpy changed(&watcher, &DocumentWatcher::changed);
    watcher.watch(m_path);
    write("two");
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toString(), m_path);

    // The same bytes once more are no change; the next different ones are.
    write("two");
    write("three");
    QTRY_COMPARE(changed.count(), 2);

    watcher.forget(m_path);
    write("four");
    // The watcher of another file shows when the first would have spoken.
    DocumentWatcher other;
    QSignalSpy otherChanged(&other, &DocumentWatcher::changed);
    other.watch(m_path);
    write("five");
    QTRY_COMPARE(otherChanged.count(), 1);
    QCOMPARE(changed.count(), 2);
}

void TestDocumentWatcher::takesOwnWritesAsKnown()
{
    DocumentWatcher watcher;
    DocumentWatcher witness;
    QSignalSpy changed(&watcher, &DocumentWatcher::changed);
    QSignalSpy seen(&witness, &DocumentWatcher::changed);
    // The witness is told last, so that the watcher has decided when the witness has spoken.
    watcher.watch(m_path);
    witness.watch(m_path);
    write("two");
    watcher.accept(m_path);
    QTRY_COMPARE(seen.count(), 1);
    QCOMPARE(changed.count(), 0);
}

void TestDocumentWatcher::followsReplacedAndRemovedFiles()
{
    DocumentWatcher watcher;
    QSignalSpy changed(&watcher, &DocumentWatcher::changed);
    QSignalSpy removed(&watcher, &DocumentWatcher::removed);
    watcher.watch(m_path);
    replace("two");
    QTRY_COMPARE(changed.count(), 1);
    replace("three");
    QTRY_COMPARE(changed.count(), 2);
    QVERIFY(QFile::remove(m_path));
    QTRY_COMPARE(removed.count(), 1);
    write("four");
    QTRY_COMPARE(changed.count(), 3);
    QCOMPARE(removed.count(), 1);

    // What the document was read from is no change.
    QSignalSpy restored(&watcher, &DocumentWatcher::restored);
    replace("one");
    QTRY_COMPARE(restored.count(), 1);
    QCOMPARE(changed.count(), 3);
}

QTEST_GUILESS_MAIN(TestDocumentWatcher)
#include "test_documentwatcher.moc"
