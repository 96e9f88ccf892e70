// Which signed coordinate axis points to which room direction: the legal assignments, their angles.
#ifndef COARSE_COORDINATECALCULATOR_H
#define COARSE_COORDINATECALCULATOR_H

#include <QString>

/// How the controller's room calibration was made. The value 4 stands for no type.
enum CalibrationType
{
    calibration_normal = 0,
    calibration_powerwall = 1,
    calibration_powerwall_standing = 2,
    calibration_mid_camera = 3,
    calibration_none = 5
};

/// Axis codes 0 to 5 stand for "x", "-x", "y", "-y", "z", "-z".
const int axis_code_count = 6;

inline bool is_axis_code(int code) { return code >= 0 && code < axis_code_count; }

inline bool is_positive_axis(int code) { return is_axis_code(code) && code % 2 == 0; }

/// The same axis with the other sign; `code` must be an axis code.
inline int opposite_axis(int code) { return code ^ 1; }

/// The axis code that points to each room direction, as seen in the sketch. Legal if opposite
/// directions hold opposite axes and right, up, out are right-handed in this order.
struct CoordinateAxix
{
    int left;
    int right;
    int up;
    int down;
    int out; ///< towards the viewer
    int in;  ///< away from the viewer
};

/// Knows the 24 right-handed assignments and the three angles that belong to each. Angles are
/// whole degrees; R = Rx(rx) Ry(ry) Rz(rz) holds, column by column, the turned axes written in the
/// standard axes of the calibration type. Nothing here reports a failure: bad arguments change
/// nothing.
class CoordinateCalculator
{
public:
    explicit CoordinateCalculator(int cali_type);
    ~CoordinateCalculator();

    /// 4 and negative values become `calibration_none` and leave angles and standard axes as they
    /// were. A value above 5 is kept, with the angles of all types but 0, and leaves the standard
    /// axes as they were.
    void set_cali_type(int type);

    void init_possibility_table();
    void init_angle_for_possibility_table(int type);

    /// The assignment at the angles 0, 0, 0.
    CoordinateAxix get_standard_axis();

    /// Angles of the assignment with these right, up and out; unchanged if it is not legal.
    void get_angle_from_coord_desc(CoordinateAxix axis, int& rx, int& ry, int& rz);

    /// Completes a choice of right and up. If both lie on different axes, sets `out` and returns
    /// true. Otherwise keeps right (or up, if `keep_right` is false), sets the other two to the
    /// first legal assignment and returns false. A kept value that is no axis code changes nothing
    /// and returns false.
    bool adjust_coordinate_desc(int& right, int& up, int& out, bool keep_right);

    // Quarter turns of the coordinate system, right-handed about a room direction.
    CoordinateAxix rotate_90_around_left(CoordinateAxix axis);
    CoordinateAxix rotate_90_around_right(CoordinateAxix axis);
    CoordinateAxix rotate_90_around_up(CoordinateAxix axis);
    CoordinateAxix rotate_90_around_down(CoordinateAxix axis);
    CoordinateAxix rotate_90_around_out(CoordinateAxix axis);
    CoordinateAxix rotate_90_around_in(CoordinateAxix axis);

    /// Turns about a positive coordinate axis (code 0, 2 or 4), wherever it points. Angles are cut
    /// to whole quarter turns after a negative one got 360 added, once: -1 makes three turns, -450
    /// none.
    CoordinateAxix around_axis_rotate(CoordinateAxix axis, int angle, int axis_code);

    /// Turns about x, then about the turned y, then about the twice turned z.
    CoordinateAxix x_y_z_rotate(CoordinateAxix axis, int rx, int ry, int rz);

    /// Display string of an axis code; empty for any other value.
    QString convert_int_to_desc(int code);
    /// Axis code of exactly that display string; -1 for any other text.
    int convert_desc_to_int(QString desc);

    QString get_left_desc(CoordinateAxix axis);
    QString get_right_desc(CoordinateAxix axis);
    QString get_up_desc(CoordinateAxix axis);
    QString get_down_desc(CoordinateAxix axis);
    QString get_out_desc(CoordinateAxix axis);
    QString get_in_desc(CoordinateAxix axis);

private:
    enum
    {
        possibility_count = 24
    };
    enum Column
    {
        right_column,
        up_column,
        out_column
    };

    int find_row(Column column, int code) const;

    int cali_type;
    CoordinateAxix standard_axis;
    int possibility_table[possibility_count][3]; ///< right, up, out
    int angle_table[possibility_count][3];       ///< rx, ry, rz of the same row
};

#endif
