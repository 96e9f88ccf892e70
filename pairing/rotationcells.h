// The rotations of space, cut into 300 tetrahedra of quaternions.
#ifndef PAIRING_ROTATIONCELLS_H
#define PAIRING_ROTATIONCELLS_H

/// The 600 cells of the regular polytope with 120 vertices tile the unit quaternions. As q and -q
/// are the same rotation, half of each suffices.
struct RotationCells
{
    enum
    {
        vertex_count = 60,
        edge_count = 360,
        cell_count = 300
    };

    double vertices[vertex_count][4];
    int cells[cell_count][4]; ///< indices of vertices
    int signs[cell_count][4]; ///< 1 or -1: times its sign, a vertex lies beside the others

    /// Built at the first call.
    static const RotationCells& instance();

private:
    RotationCells();
    int add_vertices();
    void add_cells();
};

#endif
