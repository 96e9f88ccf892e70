// What the start of a fit makes of its first three points.
#ifndef PAIRING_TRIPLESHAPES_H
#define PAIRING_TRIPLESHAPES_H

enum TripleShape
{
    degenerate_triple, ///< no start, every order that begins with it fails
    doubtful_triple,   ///< nearly collinear: the start may be far from a rotation
    sound_triple       ///< the start is a rotation within 1e-10
};

/// The shapes of all orders' first three pairs.
class TripleShapes
{
public:
    /// The lists of n points, at least 3, must outlive the object.
    TripleShapes(const double (*reference)[3], const double (*measured)[3], int n);

    /// Of the orders that begin with these three measured points.
    TripleShape shape(const int* triple) const;

    bool has_sound() const { return m_has_sound; }
    bool has_only_sound() const { return m_has_sound && !m_has_others; }

private:
    void look_at_triples_from(int first);

    enum
    {
        size = 3
    };

    const double (*m_reference)[3];
    const double (*m_measured)[3];
    const int m_n;
    bool m_reference_is_well_shaped;
    bool m_has_sound;
    bool m_has_others;
};

#endif
