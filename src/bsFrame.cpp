#include "src/bsFrame.h"

bsFrame::bsFrame() : reference_frame(nullptr) {}

bsFrame::bsFrame(const bsVector& position, const bsQuaternion& orientation, bsFrame* reference)
    : position(position), orientation(orientation), reference_frame(reference)
{
}

bsFrame::bsFrame(const bsMatrix& m, bsFrame* reference)
    : position(m.getColumn(3)), reference_frame(reference)
{
    orientation.fromMatrix(m);
}

bsFrame::bsFrame(const bsFrame& other) : bsFrame() { *this = other; }

bsFrame& bsFrame::operator=(const bsFrame& other)
{
    const bsMatrix m = other.toMatrix();
    orientation.fromMatrix(m);
    position = m.getColumn(3);
    setReferenceFrame(other.getReferenceFrame());
    return *this;
}

bsMatrix bsFrame::toMatrix() const
{
    bsMatrix m = orientation.toMatrix();
    m.setColumn(3, position, 1.0);
    return m;
}

bool bsFrame::isCreatingLoop(bsFrame* candidate)
{
    for (bsFrame* p = candidate; p; p = p->getReferenceFrame())
        if (p->getReferenceFrame() == this)
            return true;
    return false;
}
