// Draws the object with the error to expect around it, as SVG.
#ifndef TOOLS_ERRORPICTURE_H
#define TOOLS_ERRORPICTURE_H

#include "tools/expectation.h"

#include <QString>

/// The points and places seen along the axis in which they extend least. The color of the ground
/// is the closed form of the error there; a place has a circle with its simulated error, enlarged
/// by a factor that stands in the picture.
QString error_picture(const Points& reference, const Expectation& expected, double noise);

#endif
