// Records of the tracked objects, as the controller's data lines give them.
#ifndef TRACKING_ZETRAKDATATYPES_H
#define TRACKING_ZETRAKDATATYPES_H

/// `loc` is a position in mm in the room system, `rot` a rotation matrix in the order of the line.
/// `quality` is -1.0 for an object that is not tracked. All records are plain data: `Type()` has
/// every number 0.
namespace ZetrakSDK_Datatypes
{

enum
{
    Zetrak_Max_Button = 16,
    Zetrak_Max_Joystick = 8,
    Zetrak_Max_Finger = 5,
    Zetrak_Max_Joint = 20
};

/// Body with a target of its own.
struct Zetrak_Body_Type_d
{
    int id;
    double quality;
    double loc[3];
    double rot[9];
};

/// Reference body of the Measurement Tools.
struct Zetrak_MeaRef_Type_d
{
    int id;
    double quality;
    double loc[3];
    double rot[9];
};

/// Hand-held pointing device; `num_button` is at most 8 and `num_joystick` at most 8.
struct Zetrak_WandStick_Type_d
{
    int id;
    double quality;
    int num_button;
    int button[Zetrak_Max_Button]; ///< 0 or 1
    int num_joystick;
    double joystick[Zetrak_Max_Joystick];
    double loc[3];
    double rot[9];
};

/// Tool whose tip measures points; `loc` is the tip. The extra values exist in "6dmt2" lines only
/// and are 0 otherwise.
struct Zetrak_MeaTool_Type_d
{
    int id;
    double quality;
    int num_button;
    int button[Zetrak_Max_Button]; ///< 0 or 1
    double loc[3];
    double rot[9];
    double extra_value;
    double extra_values[6];
};

struct Zetrak_Hand_Type_d
{
    struct Finger
    {
        double loc[3];
        double rot[9];
        double values[6];
    };

    int id;
    double quality;
    int side;
    int num_finger;
    double loc[3];
    double rot[9];
    Finger finger[Zetrak_Max_Finger];
};

/// Human model; joints stand in the order of the line.
struct Zetrak_Human_Type_d
{
    struct Joint
    {
        int id;
        double quality;
        double loc[3];
        double angles[3];
        double rot[9];
    };

    int id;
    int num_joint;
    Joint joint[Zetrak_Max_Joint];
};

/// Body with an inertial sensor.
struct Zetrak_Inertial_Type_d
{
    int id;
    int state;
    double error;
    double loc[3];
    double rot[9];
};

/// Single marker; the id is the controller's own and no index.
struct Zetrak_Marker_Type_d
{
    int id;
    double quality;
    double loc[3];
};

} // namespace ZetrakSDK_Datatypes

#endif
