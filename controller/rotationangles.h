// The room rotation as three angles and as the nine elements of a room adjustment record.
//
// How the elements lie is told at RoomAdjustmentData::rotation.
#ifndef CONTROLLER_ROTATIONANGLES_H
#define CONTROLLER_ROTATIONANGLES_H

/// Degrees in a radian with pi cut after six decimals, 180 / 3.141592. Room adjustments in the
/// field were made with this value; it must not be merged with the geometry kernel's exact one.
const double room_degrees_per_radian = 57.29579143313326;

/// R = Rx(rx) Ry(ry) Rz(rz) of angles in degrees into nine elements of R, column after column: the
/// transpose of what a record holds.
void _angles2matrix(double* m, double rx, double ry, double rz);

/// The elements of a record for angles in degrees.
void angles_to_rotation(double rx, double ry, double rz, double* elements);

/// The angles in degrees of a record's elements. With ry at plus or minus 90 degrees rz is 0 and rx
/// carries both turns. Angles that come out just below -180 become exactly 180.
void rotation_to_angles(const double* elements, double& rx, double& ry, double& rz);

/// Makes nine elements exact (without negative zeros) if each is within 1e-6 of 0, 1 or -1;
/// otherwise leaves all as they are.
void beautify_rotation(double* elements);

/// Whether an extra transformation counts as the one that changes nothing. Judged by sums: three
/// zeros, six off-diagonal elements of sum 0, a diagonal of sum 3. Others that agree by chance pass
/// too.
bool is_default_transformation(const double* translation, const double* rotation, double scaling);

#endif
