#include "SourceFiles/glUtils.h"
#include "tests/support/abort_catcher.h"
#include "tests/support/fatal_logger.h"

#include <QGLWidget>
#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

namespace
{

// Lines and polygons that a drawing makes, read back from OpenGL instead of from pixels.
struct Feedback
{
    int lines = 0;
    int polygons = 0;
    std::vector<bsVector> line_ends;
};

// The volume is a cube of this half size, so that window coordinates can be turned back.
const double half_size = 10000.0;

bsVector point_at(const GLfloat* values) { return (bsVector(values) - 0.5) * (2 * half_size); }

// Returns the number of values read.
int read_token(const GLfloat* token, Feedback& feedback)
{
    if (token[0] == GL_POLYGON_TOKEN) {
        ++feedback.polygons;
        return 2 + 3 * static_cast<int>(token[1]);
    }
    ++feedback.lines;
    feedback.line_ends.push_back(point_at(token + 1));
    feedback.line_ends.push_back(point_at(token + 4));
    return 7;
}

Feedback feedback_of(const std::function<void()>& drawing)
{
    std::vector<GLfloat> buffer(100000);
    glFeedbackBuffer(static_cast<GLsizei>(buffer.size()), GL_3D, buffer.data());
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(-half_size, half_size, -half_size, half_size, half_size, -half_size);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glViewport(0, 0, 1, 1);
    glRenderMode(GL_FEEDBACK);
    drawing();
    const int size = glRenderMode(GL_RENDER);
    Feedback feedback;
    for (int i = 0; i < size;)
        i += read_token(&buffer[i], feedback);
    return feedback;
}

std::vector<double> x_of_lines_along_y(const Feedback& feedback)
{
    std::vector<double> xs;
    for (std::size_t i = 0; i + 1 < feedback.line_ends.size(); i += 2)
        if (std::fabs(feedback.line_ends[i].x - feedback.line_ends[i + 1].x) < 1.0)
            xs.push_back(std::round(feedback.line_ends[i].x));
    return xs;
}

} // namespace

class TestGlUtils : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        install_fatal_logger();
        widget = new QGLWidget;
        widget->makeCurrent();
    }

    void frame_is_right_handed_for_each_pair()
    {
        for (int set = 0; set < 3; ++set)
            for (int preserve : {(set + 1) % 3, (set + 2) % 3}) {
                const bsVector asked(0.3, 4, 1);
                bsVector axis(1, 2, -0.5), preserved(asked), third;
                const bsMatrix m =
                    computeFrame(axis, preserved, third, abcAxis(set), abcAxis(preserve));
                QVERIFY(axis == bsVector(1, 2, -0.5).normalize());
                QVERIFY(m.getColumn(set) == axis && m.getColumn(preserve) == preserved
                        && m.getColumn(3 - set - preserve) == third);
                QVERIFY((m.getColumn(0) ^ m.getColumn(1)) == m.getColumn(2));
                QVERIFY(bsVector::dotProduct(asked, preserved) > 0.0);
                QVERIFY(bsVector::isOrthogonal(asked, third));
            }
    }

    void frame_of_equal_axes_stops_the_program()
    {
        const std::string said = stderr_of_abort([] {
            bsVector x(1, 0, 0), y(0, 1, 0), z;
            computeFrame(x, y, z, abcAxisZ, abcAxisZ);
        });
        QCOMPARE(said,
                 std::string("SourceFiles/glUtils.cpp:205: const bsMatrix computeFrame(bsVector&, "
                             "bsVector&, bsVector&, abcAxis, abcAxis): "
                             "Assertion `axisToSet != axisToPreserve' failed.\n"));
    }

    void grid_lines_start_at_the_cut_end()
    {
        const struct
        {
            double half_width;
            int lines; // along y; those along x are 3, at -150, -50 and 50
            double first, last;
        } rows[] = {{5000.7, 101, -5000, 5000}, {1050, 22, -1050, 1050}, {130, 3, -130, 70}};
        for (const auto& row : rows) {
            glEnable(GL_LIGHTING);
            const Feedback grid = feedback_of([&] { drawGrid(row.half_width, 199, 100, 199); });
            QVERIFY(!glIsEnabled(GL_LIGHTING));
            const std::vector<double> xs = x_of_lines_along_y(grid);
            QCOMPARE(static_cast<int>(xs.size()), row.lines);
            QCOMPARE(grid.lines, row.lines + 3);
            QCOMPARE(xs.front(), row.first);
            QCOMPARE(xs.back(), row.last);
        }
        for (double bad : {HUGE_VAL, std::numeric_limits<double>::quiet_NaN(), 1e30})
            QCOMPARE(feedback_of([&] { drawGrid(bad, 100.0, 100.0, 100.0); }).lines, 0);
    }

    void axes_leave_stipple_and_lighting_as_said()
    {
        double origin[] = {0, 0, 0};
        glEnable(GL_LINE_STIPPLE);
        const Feedback plain = feedback_of([&] { drawAxes(origin, 80.0, 3.0, false, 10.0, 1.0); });
        QCOMPARE(plain.lines, 0);
        QVERIFY(plain.polygons >= 3 * 16); // three cones
        QVERIFY(glIsEnabled(GL_LINE_STIPPLE));
        QVERIFY(glIsEnabled(GL_LIGHTING));

        const Feedback dashed = feedback_of([&] { drawAxes(origin, 80.0, 3.0, true, 10.0, 1.0); });
        QCOMPARE(dashed.lines, 3);
        QVERIFY(std::fabs(dashed.line_ends[1].x - 800.0) < 1.0);
        QVERIFY(std::fabs(dashed.line_ends[2].y + 800.0) < 1.0);
        QVERIFY(!glIsEnabled(GL_LINE_STIPPLE));
        QVERIFY(!glIsEnabled(GL_LIGHTING));
    }

    void rotation_axes_stay_turned()
    {
        double m[16];
        const Feedback axes = feedback_of([&] {
            drawRotationAxes(bsQuaternion(90, bsVector(0, 0, 1)));
            glGetDoublev(GL_MODELVIEW_MATRIX, m);
        });
        QVERIFY(bsMatrix(m) == bsMatrix().rotationZ(90));
        QCOMPARE(axes.lines, 2);
        QVERIFY(std::fabs(axes.line_ends[1].x - 500.0) < 1.0);
        QVERIFY(std::fabs(axes.line_ends[3].x + 500.0) < 1.0);
    }

    void cleanupTestCase() { delete widget; }

private:
    QGLWidget* widget = nullptr;
};

QTEST_MAIN(TestGlUtils)
#include "test_glUtils.moc"
