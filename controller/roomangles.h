// The room's three angles, for tabs that do not know where they are kept.
#ifndef CONTROLLER_ROOMANGLES_H
#define CONTROLLER_ROOMANGLES_H

/// Turns about x, y and z in degrees; the rotation is Rx(rx) Ry(ry) Rz(rz).
class RoomAngles
{
public:
    virtual void get_angles(double& rx, double& ry, double& rz) = 0;

    /// The keeper may round them, or cut them to what it takes.
    virtual void set_angles(double rx, double ry, double rz) = 0;

protected:
    ~RoomAngles() {}
};

#endif
