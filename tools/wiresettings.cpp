#include "tools/wiresettings.h"

#include "controller/roomadjustmentdata.h"
#include "controller/rotationangles.h"
#include "controller/vocabulary.h"
#include "src/bsFrame.h"

#include <algorithm>
#include <cstdio>

namespace
{

constexpr double largest_offset = 1000000.0; // mm, the ranges of the fine tab's boxes
constexpr double least_angle = -179.0;       // degrees
constexpr double largest_angle = 180.0;

/// What a box with two decimals makes of a value.
double boxed(double value, double least, double largest)
{
    return std::max(least, std::min(largest, QString::number(value, 'f', 2).toDouble()));
}

/// The record that OK leaves: the room is moved by the inverse fit, and its inverse is taken.
RoomAdjustmentData matched_record(const bsMatrix& T_reference_measured)
{
    bsMatrix T_measured_reference;
    T_reference_measured.fastInvert(T_measured_reference);
    bsMatrix record = bsFrame(T_measured_reference, nullptr).toMatrix();
    record.fastInvert();
    RoomAdjustmentData data;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c)
            data.rotation[3 * c + r] = record(r, c);
        data.translation[r] = record(r, 3);
    }
    return data;
}

/// As the host formats it. The program never leaves the C locale for numbers.
template <typename... Numbers>
QString formatted(const char* format, Numbers... numbers)
{
    char text[500];
    std::snprintf(text, sizeof text, format, numbers...);
    return QString::fromLatin1(text);
}

} // namespace

RoomAdjustmentData applied_adjustment(const bsMatrix& T_reference_measured)
{
    RoomAdjustmentData data = matched_record(T_reference_measured);
    for (double& offset : data.translation)
        offset = -boxed(-offset, -largest_offset, largest_offset);
    double angles[3];
    rotation_to_angles(data.rotation, angles[0], angles[1], angles[2]);
    for (double& angle : angles)
        angle = boxed(angle, least_angle, largest_angle);
    angles_to_rotation(angles[0], angles[1], angles[2], data.rotation);
    beautify_rotation(data.rotation);
    return data;
}

bsMatrix motion_in_force(const RoomAdjustmentData& data)
{
    bsMatrix T(bsMatrix::getIdentityMatrix());
    for (int c = 0; c < 3; ++c)
        T.setColumn(c, bsVector(data.rotation + 3 * c), 0.0);
    T.setColumn(3, bsVector(data.translation), 1.0);
    return T;
}

QStringList wire_texts(const RoomAdjustmentData& data)
{
    const double* r = data.rotation;
    const double* t = data.translation;
    return {formatted(vocabulary::set_extra_rotation, r[0], r[1], r[2], r[3], r[4], r[5], r[6],
                      r[7], r[8]),
            formatted(vocabulary::set_extra_translation, t[0], t[1], t[2]),
            formatted(vocabulary::set_extra_scaling, data.scaling)};
}
