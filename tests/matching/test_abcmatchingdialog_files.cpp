// Loading and saving by the dialog: file boxes, questions and messages.
#include "tests/matching/matchingfixture.h"

#include <ctime>
#include <sys/stat.h>

class TestAbcMatchingDialogFiles : public QObject, private MatchingFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { stop(); }

    void a_table_is_saved_and_loaded()
    {
        exec([this] {
            add_reference({1.25, -2.0, 3.0});
            edit(0, 1, QString(QChar(0x2212)) + "7,5 ");
            save_as("points");
            QCOMPARE(content("points.txt"), QByteArray("1 1.25 -7.50 3.00\n"));
            QVERIFY(dialog->getRP(0) == bsVector(1.25, -7.5, 3.0));

            add_reference({4.0, 5.0, 6.0});
            for (auto pressed : {QMessageBox::No, QMessageBox::Yes}) {
                BoxAnswer answer(pressed);
                save_as("points"); // the extension leads to a file that exists
                QVERIFY(answer.text.startsWith("points.txt already exists."));
                QCOMPARE(answer.default_button, int(QMessageBox::No));
                QCOMPARE(content("points.txt").count('\n'), pressed == QMessageBox::No ? 1 : 2);
            }
            add_reference({7.0, 8.0, 9.0});
            load("points.txt");
            QCOMPARE(dialog->getRPCount(), 2u);
            QCOMPARE(references()->item(1, 2)->text(), QString("6.00"));
        });
    }

    void what_cannot_be_done_is_said()
    {
        mkfifo(QFile::encodeName(folder.filePath("pipe.txt")), 0600);
        write("words.txt", "no points\n");
        write("many.txt", QByteArray("1 1 2 3\n").repeated(100001));
        exec([this] {
            add_reference({1.0, 2.0, 3.0});
            const char* const rows[][2] = {
                {"pipe.txt", "It is not a regular file."},
                {"words.txt", "Unknown format !"},
                {"many.txt", "More than 100000 points do not fit into the table."}};
            for (const auto& row : rows) {
                BoxAnswer answer(QMessageBox::Ok);
                load(row[0]);
                QCOMPARE(answer.title + ": " + answer.text,
                         QString("Error loading file: ") + row[1]);
            }
            QCOMPARE(dialog->getRPCount(), 1u);
            BoxAnswer yes(QMessageBox::Yes);
            BoxAnswer failure(QMessageBox::Ok);
            save_as("pipe");
            QCOMPARE(failure.title, QString("Save"));
            QVERIFY(failure.text.contains("could not be written:\nIt is not a regular file."));
        });
    }

    void a_full_table_loads_in_time()
    {
        write("full.txt", QByteArray("1 1.25 2 3\n").repeated(100000));
        exec([this] {
            const std::clock_t before =
                std::clock(); // of this process, however busy the machine is
            load("full.txt");
            QVERIFY((std::clock() - before) / CLOCKS_PER_SEC < 2);
            QCOMPARE(references()->item(99999, 0)->text(), QString("1.25"));
            QCOMPARE(references()->rowHeight(99999), 22);
            BoxAnswer answer(QMessageBox::Ok);
            button("pushButton_addRefPoint")->click();
            QCOMPARE(answer.text, QString("More than 100000 points do not fit into the table."));
            QCOMPARE(dialog->getRPCount(), 100000u);
        });
    }

private:
    void load(const char* name)
    {
        choose(folder.filePath(name));
        dialog->load();
    }

    void save_as(const char* name)
    {
        choose(folder.filePath(name));
        dialog->on_pushButton_save_clicked();
    }

    void write(const char* name, const QByteArray& text)
    {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    QByteArray content(const char* name)
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "none";
    }

    QTemporaryDir folder;
};

QTEST_MAIN(TestAbcMatchingDialogFiles)
#include "test_abcmatchingdialog_files.moc"
