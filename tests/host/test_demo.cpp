#include "host/demo/failure.h"
#include "host/demo/stepper.h"

#include "tests/support/fatal_logger.h"

#include <QSignalSpy>
#include <QTest>

class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void troubles_end_the_steps_data()
    {
        QTest::addColumn<QString>("trouble");
        for (const char* trouble : {"nothing happened", "thrown", "alarm"})
            QTest::newRow(trouble) << trouble;
    }

    void troubles_end_the_steps()
    {
        QFETCH(QString, trouble);
        Stepper stepper;
        bool went_on = false;
        if (trouble == "alarm")
            stepper.set_alarm([trouble] { return trouble; });
        if (trouble == "thrown")
            stepper.act("the step", [trouble] { throw DemoFailure(trouble); });
        const auto never = [] { return false; };
        stepper.await("the step", never, 100);
        stepper.act("next", [&] { went_on = true; });
        QSignalSpy failed(&stepper, &Stepper::failed);
        stepper.start();
        QVERIFY(failed.count() == 1 || failed.wait());
        const QString text = failed.first().first().toString();
        QVERIFY2(text.contains("\"the step\"") && text.contains(trouble), qPrintable(text));
        QTest::qWait(100);
        QVERIFY(!went_on);
        QCOMPARE(failed.count(), 1);
    }
};

QTEST_GUILESS_MAIN(TestDemo)
#include "test_demo.moc"
