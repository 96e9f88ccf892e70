// Drawing helpers for the current OpenGL context, in immediate mode.
#ifndef SOURCEFILES_GLUTILS_H
#define SOURCEFILES_GLUTILS_H

#include "src/bsMatrix.h"
#include "src/bsQuaternion.h"
#include "src/bsVector.h"

/// The value is at the same time the column of a matrix.
enum abcAxis
{
    abcAxisX = 0,
    abcAxisY = 1,
    abcAxisZ = 2
};

/// A right-handed orthonormal frame at the origin that has axis_vector as its axis axisToSet
/// exactly, and preserved_vector as its axis axisToPreserve as nearly as possible. The vectors
/// must not be parallel. On return the three arguments are the axes of the frame. Equal axes stop
/// the program.
const bsMatrix computeFrame(bsVector& axis_vector, bsVector& preserved_vector,
                            bsVector& third_vector, abcAxis axisToSet, abcAxis axisToPreserve);

// The functions below draw in the coordinates in force, in mm, and leave the matrix stack as they
// found it unless they say otherwise.

/// A beam of square section, width wide, from start to end. Along the y axis it has no section.
void drawRectangle(bsVector& start, bsVector& end, double width);

/// Lines in the plane z = 0 in the current color, symmetric about the origin and step apart,
/// beginning at the negative end. Half sizes are cut to whole mm; steps must be above 0. A size
/// that is not finite, or that asks for more than a million lines, draws nothing. Lighting is off
/// afterwards.
void drawGrid(double half_width, double half_height, double step_x, double step_y);

/// A dashed line along x, and one along y turned by orientation, which stays multiplied onto the
/// matrix in force. Lighting is off afterwards.
void drawRotationAxes(bsQuaternion orientation);

/// Three arrows in red, green and blue along x, y and z, and dashed lines through them if
/// long_axes. Brightness, from 0 to 1, applies to the arrows alone; second_size is not used.
/// Afterwards lighting is off if the long axes were drawn, on otherwise.
void drawAxes(double* origin, double length, double second_size, bool long_axes,
              double long_axes_factor, double brightness);

#endif
