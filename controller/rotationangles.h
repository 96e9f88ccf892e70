// The room rotation as three angles and as nine matrix words.
#ifndef CONTROLLER_ROTATIONANGLES_H
#define CONTROLLER_ROTATIONANGLES_H

/// Degrees in a radian with pi cut after six decimals, 180 / 3.141592. Room adjustments in the
/// field were made with this value; it must not be merged with the geometry kernel's exact one.
const double room_degrees_per_radian = 57.29579143313326;

/// R = Rx(rx) Ry(ry) Rz(rz) of angles in degrees into nine words, column after column.
void _angles2matrix(double* m, double rx, double ry, double rz);

/// The angles in degrees of the nine words of a room adjustment record, which hold R row after row.
/// With ry at plus or minus 90 degrees rz is 0 and rx carries both turns. Angles that come out just
/// below -180 become exactly 180.
void rotation_to_angles(const double* words, double& rx, double& ry, double& rz);

/// Makes nine words exact (without negative zeros) if each is within 1e-6 of 0, 1 or -1; otherwise
/// leaves all as they are.
void beautify_rotation(double* words);

/// Turns column after column into row after row, and back.
void transpose_rotation(double* words);

/// Whether an extra transformation counts as the one that changes nothing. Judged by sums: three
/// zeros, six off-diagonal words of sum 0, a diagonal of sum 3. Others that agree by chance pass
/// too.
bool is_default_transformation(const double* translation, const double* rotation, double scaling);

#endif
