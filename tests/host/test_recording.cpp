#include "host/connection/recording.h"

#include "tests/support/fatal_logger.h"

#include <QTemporaryDir>
#include <QTest>

class TestRecording : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void what_is_written_is_read_again()
    {
        const QList<QByteArray> lines = {"ts 1.5",
                                         "",
                                         " blank first",
                                         {"nul \0 inside", 12},
                                         "carriage return\r",
                                         QByteArray(65507, 'x')}; // the largest datagram
        {
            Recorder recorder(path("lines"));
            QVERIFY(recorder.open());
            for (int i = 0; i < lines.size(); ++i)
                QVERIFY(recorder.write(i / 64.0, lines[i]));
        }
        RecordingReader reader(path("lines"));
        QVERIFY(reader.open());
        double time = 0.0;
        QByteArray line;
        for (int i = 0; i < lines.size(); ++i) {
            QCOMPARE(reader.next(&time, &line), RecordingReader::line_read);
            QCOMPARE(line, lines[i]);
            QCOMPARE(time, i / 64.0);
        }
        QCOMPARE(reader.next(&time, &line), RecordingReader::at_end);
    }

    void faults_are_named()
    {
        const QByteArray title = "tracking data recording 1\n";
        for (const auto& [content, fault] : QList<QPair<QByteArray, QString>>{
                 {"", "is empty"},
                 {"1 0 0 0\n", "line 1: not a recording"},
                 {"tracking data recording 2\n", "line 1: not a recording"},
                 {title + "0.5 ts\nts 5\n", "line 3: does not begin"},
                 {title + "0.5\n", "line 2: does not begin"},
                 {title + "inf ts\n", "line 2: does not begin"},
                 {title + "2.0 ts\n1.0 ts\n", "line 3: time goes back"},
                 {title + "-1.0 ts\n", "line 2: time goes back"},
                 {title + "0.5 " + QByteArray(70000, 'x') + '\n', "line 2: the line is too long"},
                 {title + "0.5 ts 1", "line 2: the line has no end"}}) {
            QFile file(path("faulty"));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
            file.close();
            RecordingReader reader(path("faulty"));
            double time = 0.0;
            QByteArray line;
            bool readable = reader.open();
            while (readable)
                readable = reader.next(&time, &line) == RecordingReader::line_read;
            QVERIFY2(reader.error_text().contains(fault), qPrintable(fault + reader.error_text()));
            QVERIFY(reader.error_text().contains("faulty"));
        }
    }

    void unwritable_file_is_told()
    {
        Recorder recorder(path("no/such/folder"));
        QVERIFY(!recorder.open());
        QVERIFY(recorder.error_text().contains(QStringLiteral("no/such/folder")));
    }

private:
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(TestRecording)
#include "test_recording.moc"
