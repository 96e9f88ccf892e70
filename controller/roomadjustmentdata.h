// The record of what is being adjusted: the controller's extra transformation.
#ifndef CONTROLLER_ROOMADJUSTMENTDATA_H
#define CONTROLLER_ROOMADJUSTMENTDATA_H

/// Holds what the controller holds, not what the user sees: the fine tab shows the negated
/// translation and the angles of the transposed rotation.
struct RoomAdjustmentData
{
    double translation[3] = {0.0, 0.0, 0.0}; ///< x, y, z in mm
    /// Elements of the 3 by 3 rotation that the controller applies, column after column: (0,0),
    /// (1,0), (2,0), (0,1), ... (2,2), as on the wire. The fine tab's angles describe its
    /// transpose, whose elements these are row after row.
    double rotation[9] = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
    double scaling = 1.0; ///< factor
};

#endif
