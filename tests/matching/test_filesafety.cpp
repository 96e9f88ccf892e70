// Saving a file without losing what was there, whatever stands at its path and however it fails.
#include "matching/filesafety.h"
#include "tests/support/fatal_logger.h"

#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

// No file grows beyond this while one lives, which looks like a full disk.
class FullDisk
{
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit low = m_before;
        low.rlim_cur = 100;
        setrlimit(RLIMIT_FSIZE, &low);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before;
};

QByteArray content_of(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "none";
}

} // namespace

class TestFileSafety : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void a_save_keeps_what_a_file_is_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"new", "file", "link", "link to nothing", "second name"})
            QTest::newRow(kind) << kind;
    }

    // Also with a longer and a shorter content, and with the disk full.
    void a_save_keeps_what_a_file_is()
    {
        QFETCH(QString, kind);
        const QTemporaryDir folder;
        const QString name = folder.filePath("points.txt");
        const QString target = folder.filePath("target.txt");
        const QByteArray link = QFile::encodeName(name), behind = QFile::encodeName(target);
        const bool has_old = kind != "new" && kind != "link to nothing";
        if (has_old) {
            QFile old(kind == "file" ? name : target);
            QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old content") == 11);
            QVERIFY(fchmod(old.handle(), 0640) == 0);
        }
        if (kind.startsWith("link"))
            QVERIFY(symlink("target.txt", link) == 0);
        if (kind == "second name")
            QVERIFY(::link(behind, link) == 0);

        {
            const FullDisk full;
            QVERIFY(save_file(name, QByteArray(5000, 'x')).contains("large"));
        }
        QCOMPARE(content_of(name), QByteArray(has_old ? "old content" : "none"));
        for (const QByteArray& content : {QByteArray(5000, 'x'), QByteArray("short\n")}) {
            QCOMPARE(save_file(name, content), QString());
            QCOMPARE(content_of(name), content);
        }
        struct stat status;
        QVERIFY(stat(link, &status) == 0);
        const mode_t mask = umask(0);
        umask(mask);
        QCOMPARE(status.st_mode & 0777, has_old ? 0640u : 0666u & ~mask);
        QCOMPARE(QFileInfo(name).isSymLink(), kind.startsWith("link"));
        QCOMPARE(int(status.st_nlink), kind == "second name" ? 2 : 1);
        const QStringList left =
            QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        QCOMPARE(left.size(), kind == "new" || kind == "file" ? 1 : 2);
    }

    void only_regular_files_are_written()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath("pipe");
        QVERIFY(mkfifo(QFile::encodeName(pipe), 0600) == 0);
        for (const QString& path : {pipe, folder.path(), QString("/dev/full")})
            QCOMPARE(save_file(path, "x"), QString("It is not a regular file."));
        QCOMPARE(save_file(folder.filePath("no folder/x"), "x"),
                 QString("No such file or directory"));
        QVERIFY(kind_of_file(QFile::encodeName(pipe)) == file_special);
    }
};

QTEST_APPLESS_MAIN(TestFileSafety)
#include "test_filesafety.moc"
