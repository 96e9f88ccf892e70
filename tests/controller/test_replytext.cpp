#include "controller/replytext.h"

#include <QtTest/QtTest>

#include <clocale>

class TestReplyText : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // A technician's German desktop must not turn 1.5 into 1; absent locales change nothing.
        setlocale(LC_NUMERIC, "de_DE.UTF-8");
        QLocale::setDefault(QLocale(QLocale::German));
    }

    void three_fields_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<bool>("are_numbers");
        QTest::addColumn<double>("second");
        QTest::newRow("plain") << QByteArray("1 -2.5 3") << true << -2.5;
        QTest::newRow("more than asked for") << QByteArray("1 2 3 x") << true << 2.0;
        QTest::newRow("exponent") << QByteArray("1 2.5e-3 3") << true << 0.0025;
        QTest::newRow("too few") << QByteArray("1 2") << false << 77.0;
        QTest::newRow("two blanks make an empty field") << QByteArray("1  2 3") << false << 77.0;
        QTest::newRow("a leading blank too") << QByteArray(" 1 2 3") << false << 77.0;
        QTest::newRow("a word") << QByteArray("1 two 3") << false << 77.0;
        QTest::newRow("a decimal comma") << QByteArray("1 2,5 3") << false << 77.0;
        QTest::newRow("a trailing unit") << QByteArray("1 2mm 3") << false << 77.0;
        QTest::newRow("nothing") << QByteArray("") << false << 77.0;
    }

    void three_fields()
    {
        QFETCH(QByteArray, reply);
        QFETCH(double, second);
        double values[3] = {77.0, 77.0, 77.0};
        QTEST(reply_numbers(reply.constData(), 3, values), "are_numbers");
        QCOMPARE(values[1], second);
    }
};

QTEST_APPLESS_MAIN(TestReplyText)
#include "test_replytext.moc"
