// A pose: position and orientation relative to an optional reference frame.
#ifndef SRC_BSFRAME_H
#define SRC_BSFRAME_H

#include "src/bsMatrix.h"
#include "src/bsQuaternion.h"
#include "src/bsVector.h"

class bsFrame
{
public:
    bsVector position;
    bsQuaternion orientation;
    /// The frame in which this one is given, or null. Not owned: whoever sets it keeps it alive.
    bsFrame* reference_frame;

    bsFrame();
    /// The quaternion is taken as it is.
    bsFrame(const bsVector& position, const bsQuaternion& orientation, bsFrame* reference);
    /// Orientation from the upper left block of m, position from its column 3.
    bsFrame(const bsMatrix& m, bsFrame* reference);
    /// Copies recompute the orientation from its matrix. Sign and last bits can differ from the
    /// source, and a quaternion not of length 1 comes back different.
    bsFrame(const bsFrame& other);
    bsFrame& operator=(const bsFrame& other);
    ~bsFrame() = default;

    /// The orientation with the position in column 3: takes coordinates in this frame to
    /// coordinates in the reference frame.
    bsMatrix toMatrix() const;

    /// Does not test for loops; ask isCreatingLoop before.
    void setReferenceFrame(bsFrame* reference) { reference_frame = reference; }
    bsFrame* getReferenceFrame() const { return reference_frame; }

    /// Whether this frame is among the ancestors of candidate, so that making candidate its
    /// reference would close a loop. The candidate itself is not compared with this frame. Does
    /// not return if the ancestors already hold a loop without this frame.
    bool isCreatingLoop(bsFrame* candidate);
};

#endif
