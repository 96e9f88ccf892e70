// Any bytes as a reference-point file: no crash, bounded, finite points or an untouched list, and
// what was read is told with its lines.
#include "fuzz/support/require.h"
#include "matching/referencepointfile.h"

#include <cmath>
#include <cstdint>
#include <sstream>

static bool is_finite(const bsVector& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    std::vector<bsVector> points(1, bsVector(7, 8, 9));
    ReferenceFileSource source;
    if (read_reference_points(stream, points, &source)) {
        require(points.size() <= reference_file_max_points);
        require(source.points.size() == points.size());
        for (const bsVector& p : points)
            require(is_finite(p));
    } else {
        require(points.size() == 1 && points[0].x == 7 && points[0].y == 8 && points[0].z == 9);
    }
    return 0;
}
