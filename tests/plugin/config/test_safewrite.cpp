#include "config/safewrite.h"

#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using VLT::WriteResult;

namespace {

constexpr int LIMIT = 4096;

/// Makes writing beyond LIMIT bytes into any file fail, as on a full disk.
class FileSizeLimit
{
public:
    FileSizeLimit()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        set(LIMIT);
    }
    ~FileSizeLimit() { set(m_before.rlim_cur); }

private:
    void set(rlim_t size) const
    {
        const rlimit limit = {size, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    rlimit m_before = {};
};

} // namespace

class TestSafeWrite : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder.reset(new QTemporaryDir); }

    void replacesAtomically_data();
    void replacesAtomically();
    void keepsLinksAndPermissions();
    void createsAtomically();
    void reportsUnwritablePaths();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }
    QStringList files() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

void TestSafeWrite::replacesAtomically_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("oldSize"); // -1: no file
    QTest::addColumn<int>("newSize");
    QTest::addColumn<int>("outcome");
    const int small = LIMIT - 1000;
    const int large = LIMIT + 1000;
    for (const char *kind : {"plain", "link", "hard link", "long name"}) {
        const auto add = [kind](const char *name, int oldSize, int newSize, int outcome) {
            QTest::addRow("%s %s", kind, name) << kind << oldSize << newSize << outcome;
        };
        const bool inPlace = !strcmp(kind, "hard link") || !strcmp(kind, "long name");
        add("longer", 10, small, WriteResult::Written);
        add("shorter", small, 10, WriteResult::Written);
        add("shorter beyond the limit", large, small, WriteResult::Written);
        add("too long", small, large, WriteResult::CannotWrite);
        // Neither the new bytes nor the old ones can be written up to the end.
        if (inPlace && strcmp(kind, "long name") != 0)
            add("over a longer one", large + 10, large, WriteResult::CannotRestore);
        if (!inPlace) {
            add("new", -1, small, WriteResult::Written);
            add("new, too long", -1, large, WriteResult::CannotWrite);
        }
    }
}

void TestSafeWrite::replacesAtomically()
{
    QFETCH(QString, kind);
    QFETCH(int, oldSize);
    QFETCH(int, newSize);
    QFETCH(int, outcome);
    // A second file beside one with the longest possible name cannot be named after it.
    const QString file(kind == QLatin1String("long name") ? 255 : 1, QLatin1Char('f'));
    const QByteArray old(qMax(0, oldSize), 'o');
    const QByteArray bytes(newSize, 'n');
    if (oldSize >= 0)
        write(file, old);
    QString written = file;
    if (kind == QLatin1String("link"))
        QVERIFY(QFile::link(file, path(written = QStringLiteral("link"))));
    if (kind == QLatin1String("hard link"))
        QCOMPARE(::link(qPrintable(path(file)), qPrintable(path(QStringLiteral("other")))), 0);
    QStringList left = files();
    if (oldSize < 0 && outcome == WriteResult::Written)
        left.append(file);
    left.sort();

    WriteResult result;
    {
        const FileSizeLimit limit;
        result = VLT::replaceFile(path(written), bytes);
    }
    QCOMPARE(int(result.outcome), outcome);
    QCOMPARE(result.cause.isEmpty(), result.isWritten());
    QCOMPARE(read(file), result.isWritten() ? bytes : old);
    QCOMPARE(files(), left);
    QCOMPARE(QFileInfo(path(QStringLiteral("link"))).isSymLink(), kind == QLatin1String("link"));
    if (kind == QLatin1String("hard link"))
        QCOMPARE(read(QStringLiteral("other")), read(file));
}

void TestSafeWrite::keepsLinksAndPermissions()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    write(QStringLiteral("folder/file"), "old");
    const QByteArray file = QFile::encodeName(path(QStringLiteral("folder/file")));
    QCOMPARE(::chmod(file.constData(), 0640), 0);
    if (::geteuid() == 0) // nobody else may give a file away
        QCOMPARE(::chown(file.constData(), 1234, 1235), 0);
    struct stat before = {};
    struct stat after = {};
    QCOMPARE(::stat(file.constData(), &before), 0);
    QVERIFY(QFile::link(QStringLiteral("folder/file"), path(QStringLiteral("inner"))));
    QVERIFY(QFile::link(QStringLiteral("inner"), path(QStringLiteral("outer"))));
    QVERIFY(VLT::replaceFile(path(QStringLiteral("outer")), "new").isWritten());
    QCOMPARE(read(QStringLiteral("folder/file")), QByteArray("new"));
    QVERIFY(QFileInfo(path(QStringLiteral("inner"))).isSymLink());
    QCOMPARE(::stat(file.constData(), &after), 0);
    QVERIFY(after.st_ino != before.st_ino); // a new file, not one that was cut first
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_gid, before.st_gid);
}

void TestSafeWrite::createsAtomically()
{
    const QString file = path(QStringLiteral("file"));
    const QByteArray bytes(LIMIT + 1, 'n');
    {
        const FileSizeLimit limit;
        QCOMPARE(int(VLT::createFile(file, bytes).outcome), int(WriteResult::CannotWrite));
        QCOMPARE(files(), QStringList());
    }
    QVERIFY(VLT::createFile(file, bytes).isWritten());
    QCOMPARE(int(VLT::createFile(file, "other").outcome), int(WriteResult::CannotOpen));
    QCOMPARE(read(QStringLiteral("file")), bytes);
}

void TestSafeWrite::reportsUnwritablePaths()
{
    const auto outcome = [](const QString &path) {
        return int(VLT::replaceFile(path, "new").outcome);
    };
    QCOMPARE(outcome(path(QStringLiteral("missing/file"))), int(WriteResult::CannotOpen));
    QCOMPARE(outcome(m_folder->path()), int(WriteResult::CannotOpen));
    QCOMPARE(outcome(QStringLiteral("/dev/full")), int(WriteResult::CannotWrite));
    QCOMPARE(outcome(QStringLiteral("/dev/null")), int(WriteResult::Written));
}

QTEST_APPLESS_MAIN(TestSafeWrite)

#include "test_safewrite.moc"
