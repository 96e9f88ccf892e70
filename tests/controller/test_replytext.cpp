#include "controller/replytext.h"

#include <QtTest>

#include <clocale>

class TestReplyText : public QObject
{
    Q_OBJECT

private slots:
    void three_fields()
    {
        // A technician's German desktop must not turn 1.5 into 1; absent locales change nothing.
        setlocale(LC_NUMERIC, "de_DE.UTF-8");
        QLocale::setDefault(QLocale(QLocale::German));
        const double kept = 77.0;
        const struct
        {
            const char* reply;
            double second; // `kept` if the reply is no three numbers
        } rows[] = {{"1 -2.5 3", -2.5}, {"1 2 3 x", 2.0},  {"1 2.5e-3 3", 0.0025},
                    {"1 2", kept},      {"1  2 3", kept},  {" 1 2 3", kept},
                    {"1 two 3", kept},  {"1 2,5 3", kept}, {"1 2mm 3", kept},
                    {"1 nan 3", kept},  {"", kept}};
        for (const auto& row : rows) {
            double values[3] = {kept, kept, kept};
            QCOMPARE(reply_numbers(row.reply, 3, values), row.second != kept);
            QCOMPARE(values[1], row.second);
        }
    }
};

QTEST_APPLESS_MAIN(TestReplyText)
#include "test_replytext.moc"
