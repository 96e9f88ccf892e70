#include "tools/objectcheck.h"

#include "registration/trafo3d.h"

#include <Eigen/Dense>

#include <limits>

namespace
{

constexpr std::size_t most_symmetries = 64;
constexpr std::size_t most_duplicates = 1000;
constexpr int triple = 3;
constexpr double slim = 0.1;            // height of a triple over its longest side
constexpr double flat = 0.02;           // thickness over size
constexpr double smallest_size = 100.0; // mm, less is hardly an object of a room

typedef Eigen::Matrix<double, Eigen::Dynamic, 3> Rows;

Rows centered_rows(const Points& points)
{
    const bsVector center = centroid(points);
    Rows out(points.size(), 3);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const bsVector p = points[i] - center;
        out.row(Eigen::Index(i)) << p.x, p.y, p.z;
    }
    return out;
}

void measure_shape(const Points& points, ObjectCheck* check)
{
    const Rows p = centered_rows(points);
    // Eigenvalues ascend: the first axis is the normal of the plane, the last the line.
    const Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> axes(Eigen::Matrix3d(p.transpose() * p));
    const Rows along = p * axes.eigenvectors();
    check->thickness = along.col(0).cwiseAbs().maxCoeff();
    check->width = along.leftCols(2).rowwise().norm().maxCoeff();
}

double largest_distance(const Points& points)
{
    const std::size_t most = 2000; // of a longer list a part is enough for the size
    const std::size_t count = std::min(points.size(), most);
    double largest = 0.0;
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t k = i + 1; k < count; ++k)
            largest = std::max(largest, distance(points[i], points[k]));
    return largest;
}

void measure_triple(const Points& points, ObjectCheck* check)
{
    const bsVector a = points[1] - points[0], b = points[2] - points[0];
    check->triple_length = std::max(std::max(length(a), length(b)), distance(points[1], points[2]));
    check->triple_height = length(a) > 0.0 ? length(a ^ b) / length(a) : 0.0;
}

/// Sorted by x, so that long lists stay fast.
void find_duplicates(const Points& points, double tolerance, ObjectCheck* check)
{
    std::vector<int> by_x = counting_order(points.size());
    std::stable_sort(by_x.begin(), by_x.end(), [&](int i, int k) {
        return points[std::size_t(i)].x < points[std::size_t(k)].x;
    });
    for (std::size_t a = 0; a < by_x.size(); ++a)
        for (std::size_t b = a + 1; b < by_x.size(); ++b) {
            const bsVector& p = points[std::size_t(by_x[a])];
            const bsVector& q = points[std::size_t(by_x[b])];
            if (q.x - p.x > tolerance || check->duplicates.size() == most_duplicates)
                break;
            if (distance(p, q) <= tolerance)
                check->duplicates.push_back(std::minmax(by_x[a], by_x[b]));
        }
    std::sort(check->duplicates.begin(), check->duplicates.end());
}

std::vector<Symmetry> others(const PairingSearch& search, const std::vector<int>& itself)
{
    std::vector<Symmetry> found;
    for (const Pairing& pairing : search.best)
        if (pairing.order != itself)
            found.push_back({pairing.order, std::sqrt(pairing.square_sum / double(itself.size()))});
    return found;
}

void find_symmetries(const Points& points, double tolerance, ObjectCheck* check)
{
    const std::vector<int> itself = counting_order(points.size());
    const double ceiling = double(points.size()) * tolerance * tolerance;
    const PairingSearch close =
        find_pairings(points, points, {most_symmetries + 2, ceiling}, itself);
    check->symmetries = others(close, itself);
    check->is_proven = close.is_complete;
    if (!check->symmetries.empty()) {
        check->nearest = check->symmetries.front();
    } else {
        const PairingSearch any =
            find_pairings(points, points, {2, std::numeric_limits<double>::infinity()}, itself);
        check->nearest = others(any, itself).front();
        check->is_proven = check->is_proven && any.is_complete;
    }
    check->has_more_symmetries = check->symmetries.size() > most_symmetries;
    check->symmetries.resize(std::min(check->symmetries.size(), most_symmetries));
}

QStringList doubts_about(const ObjectCheck& check, std::size_t count)
{
    QStringList doubts;
    if (count < triple)
        return {QString::fromLatin1("A fit takes at least three points.")};
    if (count > trafo3d_max_points)
        doubts
            << QString::fromLatin1("A fit takes at most %1 points.").arg(int(trafo3d_max_points));
    if (!check.duplicates.empty())
        doubts << QString::fromLatin1("Some points are equal, or nearly so.");
    if (check.width <= slim * check.size)
        doubts << QString::fromLatin1("The points lie nearly on one line: a turn about it is left "
                                      "to the noise.");
    else if (check.triple_height <= slim * check.triple_length)
        doubts << QString::fromLatin1("The first three points lie nearly on one line, and the fit "
                                      "starts from them: put three first that are far apart.");
    if (!check.symmetries.empty())
        doubts << QString::fromLatin1(
            "The object is symmetric within the tolerance: touched in any "
            "order, it may come out turned.");
    if (check.size < smallest_size)
        doubts << QString::fromLatin1("The object is very small. Are the values metres?");
    return doubts;
}

} // namespace

bool is_flat(const ObjectCheck& check) { return check.thickness <= flat * check.size; }

ObjectCheck check_object(const Points& points, double tolerance)
{
    ObjectCheck check;
    if (points.size() >= triple) {
        check.size = largest_distance(points);
        measure_shape(points, &check);
        measure_triple(points, &check);
        find_duplicates(points, tolerance, &check);
        if (points.size() <= trafo3d_max_points)
            find_symmetries(points, tolerance, &check);
    }
    check.doubts = doubts_about(check, points.size());
    check.verdict = points.size() < triple   ? verdict_error
                    : check.doubts.isEmpty() ? verdict_good
                                             : verdict_doubtful;
    return check;
}
