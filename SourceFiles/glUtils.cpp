#include "SourceFiles/glUtils.h"

#include "src/bsAssert.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cmath>

namespace
{

// What the failing assertion prints is prescribed, and does not follow the source.
constexpr int assertion_line = 205;
const char* const assertion_function =
    "const bsMatrix computeFrame(bsVector&, bsVector&, bsVector&, abcAxis, abcAxis)";

constexpr double most_grid_lines = 1e6;
constexpr GLushort rotation_axis_pattern = 0x1C47;
constexpr GLushort long_axis_pattern = 0xF0F0;
constexpr double rotation_axis_half_length = 500.0; // mm
constexpr int slices = 16;
constexpr int stacks = 1;

bool isNextAxis(abcAxis axis, abcAxis next) { return next == (axis + 1) % 3; }

void drawQuad(const bsVector& normal, const bsVector& a, const bsVector& b, const bsVector& c,
              const bsVector& d)
{
    glNormal3dv(normal);
    glVertex3dv(a);
    glVertex3dv(b);
    glVertex3dv(c);
    glVertex3dv(d);
}

// Ends of one GL_LINES segment from -end to end.
void addLineThroughOrigin(double x, double y, double z)
{
    glVertex3d(-x, -y, -z);
    glVertex3d(x, y, z);
}

void drawColoredLine(const bsVector& color, const bsVector& end)
{
    glColor3dv(color);
    glBegin(GL_LINES);
    addLineThroughOrigin(end.x, end.y, end.z);
    glEnd();
}

// The half size cut to whole mm, divided and multiplied by the step to round as the lines do.
double gridExtent(double half_size, double step) { return std::trunc(half_size) / step * step; }

bool canBeDrawn(double extent, double step)
{
    return std::isfinite(extent) && step > 0.0 && 2.0 * extent / step < most_grid_lines;
}

void drawArrow(GLUquadric* quadric, const double* origin, double length)
{
    const double cone_radius = length / 10.0;
    const double shaft_radius = 0.125 * cone_radius;
    const double cone_height = length / 5.0;
    gluCylinder(quadric, shaft_radius, shaft_radius, length, slices, stacks);
    glTranslated(origin[0], origin[1], length + origin[2]);
    gluCylinder(quadric, cone_radius, 0.0, cone_height, slices, stacks);
}

void drawArrows(const double* origin, double length, double brightness)
{
    GLUquadric* const quadric = gluNewQuadric();
    gluQuadricDrawStyle(quadric, GLU_FILL);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glEnable(GL_LIGHTING);

    glColor3d(brightness, 0.0, 0.0);
    glPushMatrix();
    glRotated(90.0, 0.0, 1.0, 0.0);
    drawArrow(quadric, origin, length);
    glPopMatrix();

    glColor3d(0.0, brightness, 0.0);
    glPushMatrix();
    glRotated(-90.0, 1.0, 0.0, 0.0);
    drawArrow(quadric, origin, length);
    glPopMatrix();

    glColor3d(0.0, 0.0, brightness);
    glPushMatrix();
    drawArrow(quadric, origin, length);
    glPopMatrix();

    gluDeleteQuadric(quadric);
}

void drawLongAxes(double half_length)
{
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(1, long_axis_pattern);
    glDisable(GL_LIGHTING);
    glLineWidth(1.0f);
    drawColoredLine(bsVector(1, 0, 0), bsVector(half_length, 0, 0));
    drawColoredLine(bsVector(0, 1, 0), bsVector(0, half_length, 0));
    drawColoredLine(bsVector(0, 0, 1), bsVector(0, 0, half_length));
    glDisable(GL_LINE_STIPPLE);
}

} // namespace

const bsMatrix computeFrame(bsVector& axis_vector, bsVector& preserved_vector,
                            bsVector& third_vector, abcAxis axisToSet, abcAxis axisToPreserve)
{
    if (axisToSet == axisToPreserve)
        bsAssertionFailed("axisToSet != axisToPreserve", "SourceFiles/glUtils.cpp", assertion_line,
                          assertion_function);

    axis_vector.normalize();
    if (isNextAxis(axisToSet, axisToPreserve)) {
        third_vector = axis_vector ^ preserved_vector;
        preserved_vector = third_vector ^ axis_vector;
    } else {
        third_vector = preserved_vector ^ axis_vector;
        preserved_vector = axis_vector ^ third_vector;
    }
    preserved_vector.normalize();
    third_vector.normalize();

    bsMatrix frame;
    frame.setColumn(axisToSet, axis_vector, 0.0);
    frame.setColumn(axisToPreserve, preserved_vector, 0.0);
    frame.setColumn(3 - axisToSet - axisToPreserve, third_vector, 0.0);
    frame.setColumn(3, bsVector(), 1.0);
    return frame;
}

void drawRectangle(bsVector& start, bsVector& end, double width)
{
    bsVector a = end - start;
    bsVector b = a ^ bsVector(0, 1, 0);
    bsVector c = a ^ b;
    a.normalize();
    b.normalize();
    c.normalize();
    b *= width * 0.5;
    c *= width * 0.5;
    const bsVector corners[] = {start + c + b, start + c - b, start - c - b, start - c + b,
                                end + c + b,   end + c - b,   end - c - b,   end - c + b};
    b.normalize();
    c.normalize();

    glBegin(GL_QUADS);
    drawQuad(-a, corners[0], corners[1], corners[2], corners[3]);
    drawQuad(c, corners[0], corners[1], corners[5], corners[4]);
    drawQuad(-b, corners[1], corners[2], corners[6], corners[5]);
    drawQuad(-c, corners[2], corners[3], corners[7], corners[6]);
    drawQuad(b, corners[3], corners[0], corners[4], corners[7]);
    drawQuad(a, corners[4], corners[5], corners[6], corners[7]);
    glEnd();
}

void drawGrid(double half_width, double half_height, double step_x, double step_y)
{
    const double x_end = gridExtent(half_width, step_x);
    const double y_end = gridExtent(half_height, step_y);
    glDisable(GL_LIGHTING);
    if (!canBeDrawn(x_end, step_x) || !canBeDrawn(y_end, step_y))
        return;

    glLineWidth(1.0f);
    glBegin(GL_LINES);
    for (double x = -x_end; x <= x_end; x += step_x) {
        glVertex3d(x, -y_end, 0.0);
        glVertex3d(x, y_end, 0.0);
    }
    for (double y = -y_end; y <= y_end; y += step_y) {
        glVertex3d(-x_end, y, 0.0);
        glVertex3d(x_end, y, 0.0);
    }
    glEnd();
}

void drawRotationAxes(bsQuaternion orientation)
{
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(1, rotation_axis_pattern);
    glDisable(GL_LIGHTING);
    glLineWidth(2.0f);
    drawColoredLine(bsVector(1, 0, 0), bsVector(rotation_axis_half_length, 0, 0));
    glMultMatrixd(orientation.toMatrix());
    drawColoredLine(bsVector(0, 1, 0), bsVector(0, rotation_axis_half_length, 0));
    glDisable(GL_LINE_STIPPLE);
}

void drawAxes(double* origin, double length, double, bool long_axes, double long_axes_factor,
              double brightness)
{
    drawArrows(origin, length, brightness);
    if (long_axes)
        drawLongAxes(length * long_axes_factor);
}
