#include "host/demo/deviation.h"
#include "host/demo/failure.h"
#include "host/demo/stepper.h"

#include "tests/support/fatal_logger.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <random>

namespace
{

double rounded(double value, int decimals)
{
    const double unit = std::pow(10.0, -decimals);
    return std::round(value / unit) * unit;
}

// The room that the controller reports: the inverse of a pose whose numbers were rounded as the
// fine tab and the protocol do it.
Point reported(const Point& room_point, const Point& angles, const Point& origin)
{
    const auto room_rounded =
        rotation_from_angles(rounded(angles[0], 2), rounded(angles[1], 2), rounded(angles[2], 2));
    const auto exact = rotation_from_angles(angles[0], angles[1], angles[2]);
    Point result = {0, 0, 0};
    for (std::size_t i = 0; i < 3; ++i) {
        double shift = 0.0;
        for (std::size_t k = 0; k < 3; ++k) {
            result[i] += room_rounded[3 * k + i] * room_point[k];
            shift -= exact[3 * k + i] * origin[k];
        }
        result[i] += rounded(rounded(shift, 2), 3);
    }
    return result;
}

} // namespace

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

    void rounding_stays_within_what_is_allowed()
    {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> angle(-179.0, 180.0);
        std::uniform_real_distribution<double> length(-2000.0, 2000.0);
        const MeasurementLimits no_noise = {0.0, 60.0, 0};
        double worst_share = 0.0;
        for (int i = 0; i < 20000; ++i) {
            const Point angles = {angle(random), angle(random), angle(random)};
            const Point origin = {length(random), length(random), length(random)};
            const Point object_point = {length(random) / 10, length(random) / 10,
                                        length(random) / 10};
            const Pose room_object = {rotation_from_angles(angles[0], angles[1], angles[2]),
                                      origin};
            const Point room_point = room_object(object_point);
            const double deviation = distance(reported(room_point, angles, origin), object_point);
            worst_share =
                std::max(worst_share, deviation / allowed_deviation(no_noise, room_point));
        }
        qInfo("largest share of what is allowed: %.2f", worst_share);
        QVERIFY(worst_share <= 1.0);
        QVERIFY(worst_share > 0.3); // a limit far above what happens would check nothing
    }
};

QTEST_GUILESS_MAIN(TestDemo)
#include "test_demo.moc"
