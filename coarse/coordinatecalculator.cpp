#include "coarse/coordinatecalculator.h"

#include <algorithm>

namespace
{

struct Possibility
{
    int axes[3];          // codes of right, up, out
    int angles_normal[3]; // rx, ry, rz for the calibration type "normal"
    int angles_other[3];  // rx, ry, rz for all other types
};

// Sorted by right, then by up; searches take the first match, so the order is behaviour. Several
// triples can describe one rotation: those here are the ones the user gets to see.
const Possibility possibilities[] = {
    {{0, 2, 4}, {90, 0, 0}, {0, 0, 0}},        {{0, 3, 5}, {-90, 0, 0}, {180, 0, 0}},
    {{0, 4, 3}, {0, 0, 0}, {-90, 0, 0}},       {{0, 5, 2}, {180, 0, 0}, {90, 0, 0}},
    {{1, 2, 5}, {90, 180, 0}, {0, 180, 0}},    {{1, 3, 4}, {90, 0, 180}, {0, 0, 180}},
    {{1, 4, 2}, {0, 0, 180}, {-90, 0, 180}},   {{1, 5, 3}, {0, 180, 0}, {90, 0, 180}},
    {{2, 0, 5}, {-90, 0, -90}, {180, 0, -90}}, {{2, 1, 4}, {90, 0, -90}, {0, 0, -90}},
    {{2, 4, 0}, {0, 0, -90}, {-90, 0, -90}},   {{2, 5, 1}, {180, 0, -90}, {90, 0, -90}},
    {{3, 0, 4}, {90, 0, 90}, {0, 0, 90}},      {{3, 1, 5}, {-90, 0, 90}, {180, 0, 90}},
    {{3, 4, 1}, {0, 0, 90}, {-90, 0, 90}},     {{3, 5, 0}, {180, 0, 90}, {90, 0, 90}},
    {{4, 0, 2}, {180, 90, 0}, {90, 90, 0}},    {{4, 1, 3}, {0, 90, 0}, {-90, 90, 0}},
    {{4, 2, 1}, {90, 90, 0}, {0, 90, 0}},      {{4, 3, 0}, {-90, 90, 0}, {0, 90, 180}},
    {{5, 0, 3}, {0, -90, 0}, {-90, -90, 0}},   {{5, 1, 2}, {180, -90, 0}, {90, -90, 0}},
    {{5, 2, 0}, {90, -90, 0}, {0, -90, 0}},    {{5, 3, 1}, {-90, -90, 0}, {180, -90, 0}},
};

const CoordinateAxix standard_axis_normal = {1, 0, 4, 5, 3, 2};
const CoordinateAxix standard_axis_other = {1, 0, 2, 3, 4, 5};

const char* const axis_descs[axis_code_count] = {"x", "-x", "y", "-y", "z", "-z"};

const int full_turn = 360;
const int quarter_turn = 90;
const int quarters_per_turn = 4;

typedef CoordinateAxix (CoordinateCalculator::*QuarterTurn)(CoordinateAxix);

// The turn about the direction in which `axis_code` points; null if it points nowhere.
QuarterTurn turn_about(const CoordinateAxix& axis, int axis_code)
{
    if (axis.left == axis_code)
        return &CoordinateCalculator::rotate_90_around_left;
    if (axis.right == axis_code)
        return &CoordinateCalculator::rotate_90_around_right;
    if (axis.up == axis_code)
        return &CoordinateCalculator::rotate_90_around_up;
    if (axis.down == axis_code)
        return &CoordinateCalculator::rotate_90_around_down;
    if (axis.out == axis_code)
        return &CoordinateCalculator::rotate_90_around_out;
    if (axis.in == axis_code)
        return &CoordinateCalculator::rotate_90_around_in;
    return nullptr;
}

} // namespace

CoordinateCalculator::CoordinateCalculator(int cali_type)
{
    init_possibility_table();
    set_cali_type(calibration_none); // the axes to start from, for types that set none
    set_cali_type(cali_type);
}

CoordinateCalculator::~CoordinateCalculator() {}

void CoordinateCalculator::set_cali_type(int type)
{
    const int unused_type = 4;
    if (type < 0 || type == unused_type) {
        cali_type = calibration_none;
        return;
    }
    cali_type = type;
    init_angle_for_possibility_table(type);
    if (type == calibration_normal)
        standard_axis = standard_axis_normal;
    else if (type <= calibration_none)
        standard_axis = standard_axis_other;
}

void CoordinateCalculator::init_possibility_table()
{
    for (int row = 0; row < possibility_count; ++row)
        std::copy(possibilities[row].axes, possibilities[row].axes + 3, possibility_table[row]);
}

void CoordinateCalculator::init_angle_for_possibility_table(int type)
{
    for (int row = 0; row < possibility_count; ++row) {
        const Possibility& source = possibilities[row];
        const int* angles = type == calibration_normal ? source.angles_normal : source.angles_other;
        std::copy(angles, angles + 3, angle_table[row]);
    }
}

CoordinateAxix CoordinateCalculator::get_standard_axis() { return standard_axis; }

void CoordinateCalculator::get_angle_from_coord_desc(CoordinateAxix axis, int& rx, int& ry, int& rz)
{
    for (int row = 0; row < possibility_count; ++row) {
        const int* candidate = possibility_table[row];
        if (candidate[right_column] == axis.right && candidate[up_column] == axis.up
            && candidate[out_column] == axis.out) {
            rx = angle_table[row][0];
            ry = angle_table[row][1];
            rz = angle_table[row][2];
            return;
        }
    }
}

// The first row whose column holds `code`; -1 if there is none.
int CoordinateCalculator::find_row(Column column, int code) const
{
    for (int row = 0; row < possibility_count; ++row)
        if (possibility_table[row][column] == code)
            return row;
    return -1;
}

bool CoordinateCalculator::adjust_coordinate_desc(int& right, int& up, int& out, bool keep_right)
{
    for (int row = 0; row < possibility_count; ++row) {
        const int* candidate = possibility_table[row];
        if (candidate[right_column] == right && candidate[up_column] == up) {
            out = candidate[out_column];
            return true;
        }
    }
    const int row = keep_right ? find_row(right_column, right) : find_row(up_column, up);
    if (row >= 0) {
        right = possibility_table[row][right_column];
        up = possibility_table[row][up_column];
        out = possibility_table[row][out_column];
    }
    return false;
}

// In the records below the fields stand in the order left, right, up, down, out, in.

CoordinateAxix CoordinateCalculator::rotate_90_around_left(CoordinateAxix axis)
{
    const CoordinateAxix turned = {axis.left, axis.right, axis.out, axis.in, axis.down, axis.up};
    return turned;
}

CoordinateAxix CoordinateCalculator::rotate_90_around_right(CoordinateAxix axis)
{
    const CoordinateAxix turned = {axis.left, axis.right, axis.in, axis.out, axis.up, axis.down};
    return turned;
}

CoordinateAxix CoordinateCalculator::rotate_90_around_up(CoordinateAxix axis)
{
    const CoordinateAxix turned = {axis.in, axis.out, axis.up, axis.down, axis.left, axis.right};
    return turned;
}

CoordinateAxix CoordinateCalculator::rotate_90_around_down(CoordinateAxix axis)
{
    const CoordinateAxix turned = {axis.out, axis.in, axis.up, axis.down, axis.right, axis.left};
    return turned;
}

CoordinateAxix CoordinateCalculator::rotate_90_around_out(CoordinateAxix axis)
{
    const CoordinateAxix turned = {axis.up, axis.down, axis.right, axis.left, axis.out, axis.in};
    return turned;
}

CoordinateAxix CoordinateCalculator::rotate_90_around_in(CoordinateAxix axis)
{
    const CoordinateAxix turned = {axis.down, axis.up, axis.left, axis.right, axis.out, axis.in};
    return turned;
}

CoordinateAxix CoordinateCalculator::around_axis_rotate(CoordinateAxix axis, int angle,
                                                        int axis_code)
{
    const QuarterTurn turn = is_positive_axis(axis_code) ? turn_about(axis, axis_code) : nullptr;
    if (!turn)
        return axis;
    if (angle < 0)
        angle += full_turn;
    const int turns = angle / quarter_turn % quarters_per_turn;
    for (int i = 0; i < turns; ++i)
        axis = (this->*turn)(axis);
    return axis;
}

CoordinateAxix CoordinateCalculator::x_y_z_rotate(CoordinateAxix axis, int rx, int ry, int rz)
{
    const int x = 0, y = 2, z = 4;
    axis = around_axis_rotate(axis, rx, x);
    axis = around_axis_rotate(axis, ry, y);
    return around_axis_rotate(axis, rz, z);
}

QString CoordinateCalculator::convert_int_to_desc(int code)
{
    return is_axis_code(code) ? QString::fromLatin1(axis_descs[code]) : QString();
}

int CoordinateCalculator::convert_desc_to_int(QString desc)
{
    for (int code = 0; code < axis_code_count; ++code)
        if (desc == QLatin1String(axis_descs[code]))
            return code;
    return -1;
}

QString CoordinateCalculator::get_left_desc(CoordinateAxix axis)
{
    return convert_int_to_desc(axis.left);
}

QString CoordinateCalculator::get_right_desc(CoordinateAxix axis)
{
    return convert_int_to_desc(axis.right);
}

QString CoordinateCalculator::get_up_desc(CoordinateAxix axis)
{
    return convert_int_to_desc(axis.up);
}

QString CoordinateCalculator::get_down_desc(CoordinateAxix axis)
{
    return convert_int_to_desc(axis.down);
}

QString CoordinateCalculator::get_out_desc(CoordinateAxix axis)
{
    return convert_int_to_desc(axis.out);
}

QString CoordinateCalculator::get_in_desc(CoordinateAxix axis)
{
    return convert_int_to_desc(axis.in);
}
