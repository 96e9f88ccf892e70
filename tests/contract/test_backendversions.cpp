#include "controller/versiongates.h"
#include "tests/support/fake_controller.h"

#include <QtTest/QtTest>

class TestBackendVersions : public QObject
{
    Q_OBJECT

private slots:
    void gate_test_data()
    {
        QTest::addColumn<int>("major");
        QTest::addColumn<int>("minor");
        QTest::addColumn<int>("patch");
        QTest::addColumn<bool>("passes_0_16");
        QTest::newRow("exactly the gate") << 0 << 16 << 0 << true;
        QTest::newRow("no patch number") << 0 << 16 << -1 << true;
        QTest::newRow("patch below -1 fails at the gate") << 0 << 16 << -2 << false;
        QTest::newRow("patch below -1 is not looked at above it") << 0 << 17 << -2 << true;
        QTest::newRow("minor below") << 0 << 15 << 99 << false;
        QTest::newRow("major above, minor below") << 1 << 0 << 0 << true;
        QTest::newRow("major above, patch odd") << 1 << 0 << -9 << true;
        QTest::newRow("major below, minor above") << -1 << 99 << 99 << false;
    }

    void gate_test()
    {
        QFETCH(int, major);
        QFETCH(int, minor);
        QFETCH(int, patch);
        QTEST(passes(backend(major, minor, patch), version_gate::extra_transformation),
              "passes_0_16");
    }

    void the_version_lies_behind_twelve_bytes()
    {
        const BackendVersions versions = backend(1, 2, 3);
        const int* words = reinterpret_cast<const int*>(&versions);
        QCOMPARE(sizeof versions, 6 * sizeof(int));
        QCOMPARE(words[3], 1);
        QCOMPARE(words[5], 3);
    }
};

QTEST_APPLESS_MAIN(TestBackendVersions)
#include "test_backendversions.moc"
