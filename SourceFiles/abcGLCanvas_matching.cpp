// What the 3D view draws of the matching: reference points and the tool's tip.
#include "SourceFiles/abcGLCanvas.h"

#include "SourceFiles/labelfont.h"
#include "matching/abcmatchingdialog.h"

#include <GL/glu.h>

namespace
{

constexpr double label_offset = -10.0; // these two are multiples of the room's scale factor
constexpr double point_radius = 2.0;
constexpr int point_slices = 4;
constexpr int point_stacks = 2;

constexpr int tip_slices = 32;
constexpr int tip_stacks = 32;

bsMatrix currentModelView()
{
    double elements[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, elements);
    return bsMatrix(elements);
}

// Ends where the one before began, and extends along -z.
void drawTipCylinder(GLUquadric* quadric, double base, double top, double height)
{
    glTranslated(0.0, 0.0, -height);
    gluCylinder(quadric, base, top, height, tip_slices, tip_stacks);
}

} // namespace

void AbcGLCanvas::setUseTip(bool use) { use_tip = use; }

void AbcGLCanvas::setTipSeen(bool seen) { tip_seen = seen; }

void AbcGLCanvas::setTipPos(const bsVector& position) { tip_position = position; }

void AbcGLCanvas::setTipMatrix(const bsMatrix& matrix) { tip_matrix = matrix; }

bool AbcGLCanvas::checkSetParallelAxes() { return false; }

// Long because the state of OpenGL runs through it from top to bottom.
void AbcGLCanvas::drawPoints()
{
    if (!matching_dialog)
        return;
    GLUquadric* const quadric = gluNewQuadric();
    gluQuadricDrawStyle(quadric, GLU_FILL);
    const double s = getRoomScaleFactor();
    bsMatrix spheres = currentModelView();
    bsMatrix labels = bsMatrix().translation(label_offset * s, label_offset * s, 0.0) * spheres;
    if (matching_dialog->checkApplyTrafo()) {
        spheres *= matching_dialog->getTransformationMatrix();
        labels *= matching_dialog->getTransformationMatrix();
    }
    glLineWidth(1.0f);
    glPointSize(3.0f);
    glPushMatrix();
    for (unsigned int i = 0; i < matching_dialog->getRPCount(); ++i) {
        const bsVector& point = matching_dialog->getRP(i);
        glColor3ub(255, matching_dialog->isRPSelected(static_cast<int>(i)) ? 255 : 100, 0);
        glEnable(GL_LIGHTING);
        glLoadMatrixd(spheres);
        glTranslated(point.x, point.y, point.z);
        gluSphere(quadric, point_radius * s, point_slices, point_stacks);
        glDisable(GL_LIGHTING);
        glLoadMatrixd(labels);
        drawPointNumber(static_cast<int>(i) + 1, point);
    }
    glPopMatrix();
    gluDeleteQuadric(quadric);
}

void AbcGLCanvas::drawPointNumber(int number, const bsVector& point)
{
    renderText(point.x, point.y, point.z, QString::number(number), label_font());
}

void AbcGLCanvas::drawTip()
{
    if (!tip_enabled || !tip_seen)
        return;
    glPushMatrix();
    glTranslated(tip_position.x, tip_position.y, tip_position.z);
    glMultMatrixd(tip_matrix);
    if (tip_list != 0)
        glCallList(tip_list);
    else
        buildTipList();
    glPopMatrix();
}

// Point, needle, collar and handle, one behind the other along -z.
void AbcGLCanvas::buildTipList()
{
    tip_list = glGenLists(1);
    glNewList(tip_list, GL_COMPILE_AND_EXECUTE);
    glEnable(GL_LIGHTING);
    glColor3ub(200, 200, 200);
    GLUquadric* const quadric = gluNewQuadric();
    drawTipCylinder(quadric, 1.0, 0.0, 3.0);
    drawTipCylinder(quadric, 1.0, 1.0, 23.0);
    glColor3ub(75, 75, 75);
    drawTipCylinder(quadric, 5.0, 2.0, 5.0);
    drawTipCylinder(quadric, 5.0, 5.0, 175.0);
    gluDeleteQuadric(quadric);
    glEndList();
}
