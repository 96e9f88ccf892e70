#include "controller/versiongates.h"
#include "tests/support/fake_controller.h"

#include <QtTest>

class TestBackendVersions : public QObject
{
    Q_OBJECT

private slots:
    void which_versions_pass_a_gate()
    {
        // A patch below -1 is looked at only at exactly the gate's major and minor number.
        const int passing[][3] = {{0, 16, 0}, {0, 16, -1}, {0, 17, -2}, {1, 0, 0}, {1, 0, -9}};
        const int failing[][3] = {{0, 16, -2}, {0, 15, 99}, {-1, 99, 99}};
        for (const auto& v : passing)
            QVERIFY(passes(backend(v[0], v[1], v[2]), version_gate::extra_transformation));
        for (const auto& v : failing)
            QVERIFY(!passes(backend(v[0], v[1], v[2]), version_gate::extra_transformation));
    }

    void the_version_lies_behind_twelve_bytes()
    {
        const BackendVersions versions = backend(1, 2, 3);
        const int* words = reinterpret_cast<const int*>(&versions);
        QVERIFY(sizeof versions == 6 * sizeof(int) && words[3] == 1 && words[5] == 3);
    }
};

QTEST_APPLESS_MAIN(TestBackendVersions)
#include "test_backendversions.moc"
