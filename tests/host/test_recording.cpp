#include "host/recording.h"

#include "tests/support/fatal_logger.h"

#include <QTemporaryDir>
#include <QTest>

class TestRecording : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }
    void what_is_written_is_read_again();
    void faults_are_named_data();
    void faults_are_named();
    void unwritable_file_is_told();

private:
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
};

void TestRecording::what_is_written_is_read_again()
{
    const QList<QByteArray> lines = {
        "ts 1.5",
        "",
        " blank first",
        QByteArray("nul \0 inside", 12),
        "carriage return\r",
        QByteArray(65507, 'x'), // the largest datagram
    };
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

void TestRecording::faults_are_named_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("fault");
    const QByteArray title = "tracking data recording 1\n";
    QTest::newRow("empty file") << QByteArray() << "is empty";
    QTest::newRow("another kind of file") << QByteArray("1 0 0 0\n") << "line 1: not a recording";
    QTest::newRow("a later version")
        << QByteArray("tracking data recording 2\n") << "line 1: not a recording";
    QTest::newRow("no time") << title + "0.5 ts\nts 5\n"
                             << "line 3: does not begin";
    QTest::newRow("no blank") << title + "0.5\n"
                              << "line 2: does not begin";
    QTest::newRow("endless time") << title + "inf ts\n"
                                  << "line 2: does not begin";
    QTest::newRow("time goes back") << title + "2.0 ts\n1.0 ts\n"
                                    << "line 3: time goes back";
    QTest::newRow("negative time") << title + "-1.0 ts\n"
                                   << "line 2: time goes back";
    QTest::newRow("too long") << title + "0.5 " + QByteArray(70000, 'x') + '\n'
                              << "line 2: the line is too long";
    QTest::newRow("cut off") << title + "0.5 ts 1"
                             << "line 2: the line has no end";
}

void TestRecording::faults_are_named()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, fault);
    QFile file(path("faulty"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    RecordingReader reader(path("faulty"));
    double time = 0.0;
    QByteArray line;
    bool readable = reader.open();
    while (readable)
        readable = reader.next(&time, &line) == RecordingReader::line_read;
    QVERIFY2(reader.errorText().contains(fault), qPrintable(reader.errorText()));
    QVERIFY(reader.errorText().contains(QStringLiteral("faulty")));
}

void TestRecording::unwritable_file_is_told()
{
    Recorder recorder(path("no/such/folder"));
    QVERIFY(!recorder.open());
    QVERIFY(recorder.errorText().contains(QStringLiteral("no/such/folder")));
}

QTEST_GUILESS_MAIN(TestRecording)
#include "test_recording.moc"
