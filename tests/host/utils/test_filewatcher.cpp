#include "host/utils/filewatcher.h"

#include <QtTest>

using Utils::FileWatcher;

class TestFileWatcher : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void reportsForeignChanges();
    void ignoresAcceptedWrites();
    void followsReplacedAndRemovedFiles();
    void followsStampsThroughLinksAndFolders();

private:
    void write(const QByteArray &bytes) const;
    void replace(const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TestFileWatcher::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("a.vlr"));
    write("one");
}

void TestFileWatcher::write(const QByteArray &bytes) const
{
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// As editors do that never leave half a file.
void TestFileWatcher::replace(const QByteArray &bytes) const
{
    QSaveFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    QVERIFY(file.commit());
}

void TestFileWatcher::reportsForeignChanges()
{
    FileWatcher watcher(FileWatcher::Compare::Content);
    QSignalSpy changed(&watcher, &FileWatcher::changed);
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
    FileWatcher other(FileWatcher::Compare::Content);
    QSignalSpy otherChanged(&other, &FileWatcher::changed);
    other.watch(m_path);
    write("five");
    QTRY_COMPARE(otherChanged.count(), 1);
    QCOMPARE(changed.count(), 2);
}

void TestFileWatcher::ignoresAcceptedWrites()
{
    FileWatcher watcher(FileWatcher::Compare::Content);
    FileWatcher witness(FileWatcher::Compare::Content);
    QSignalSpy changed(&watcher, &FileWatcher::changed);
    QSignalSpy seen(&witness, &FileWatcher::changed);
    // The witness is told last, so that the watcher has decided when the witness has spoken.
    watcher.watch(m_path);
    witness.watch(m_path);
    write("two");
    watcher.accept(m_path);
    QTRY_COMPARE(seen.count(), 1);
    QCOMPARE(changed.count(), 0);
}

void TestFileWatcher::followsReplacedAndRemovedFiles()
{
    FileWatcher watcher(FileWatcher::Compare::Content);
    QSignalSpy changed(&watcher, &FileWatcher::changed);
    QSignalSpy removed(&watcher, &FileWatcher::removed);
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

    // What the owner read is no change.
    QSignalSpy restored(&watcher, &FileWatcher::restored);
    replace("one");
    QTRY_COMPARE(restored.count(), 1);
    QCOMPARE(changed.count(), 3);
}

void TestFileWatcher::followsStampsThroughLinksAndFolders()
{
    const QString link = m_folder->filePath(QStringLiteral("sub/link"));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("sub")) && QFile::link(m_path, link));
    FileWatcher watcher(FileWatcher::Compare::Stamp);
    QSignalSpy changed(&watcher, &FileWatcher::changed);
    watcher.watch(link);
    replace("one"); // the same bytes, but another file
    QTRY_COMPARE(changed.count(), 1);
    QVERIFY(QDir(m_folder->filePath(QStringLiteral("sub"))).removeRecursively());
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("sub")) && QFile::link(m_path, link));
    write("two");
    QTRY_COMPARE(changed.count(), 2);
    QCOMPARE(changed.last().first().toString(), link);
}

QTEST_GUILESS_MAIN(TestFileWatcher)
#include "test_filewatcher.moc"
