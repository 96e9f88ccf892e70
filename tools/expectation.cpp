#include "tools/expectation.h"

#include "registration/trafo3d.h"
#include "tools/noise.h"

#include "src/bsQuaternion.h"

#include <random>

namespace
{

constexpr unsigned seed = 20260101;
constexpr double room_size = 5000.0; // mm, half of it; how far the frames lie apart

/// One set of measured points, and where the places are for them.
class Draw
{
public:
    Draw(std::mt19937& random, double noise) : m_random(random), m_noise(noise) {}

    Points measured;
    Points places;

    void make(const Points& reference, const Points& places_in_reference)
    {
        const bsMatrix T_measured_reference = random_motion();
        measured = moved(T_measured_reference, reference);
        for (bsVector& point : measured)
            point += normal_vector() * m_noise;
        places = moved(T_measured_reference, places_in_reference);
    }

private:
    bsVector normal_vector()
    {
        const double x = m_normal(m_random), y = m_normal(m_random), z = m_normal(m_random);
        return bsVector(x, y, z);
    }

    /// All rotations are equally likely: four normal numbers have no preferred direction.
    bsMatrix random_motion()
    {
        const bsVector axis = normal_vector();
        bsQuaternion turn(axis.x, axis.y, axis.z, m_normal(m_random));
        bsMatrix T = turn.normalize().toMatrix();
        T.setColumn(3, normal_vector() * room_size, 1.0);
        return T;
    }

    static Points moved(const bsMatrix& T, Points points)
    {
        for (bsVector& point : points)
            point = T * point;
        return points;
    }

    std::mt19937& m_random;
    const double m_noise;
    std::normal_distribution<double> m_normal;
};

struct Solution
{
    double T_reference_measured[4][4];
    double residual;
};

typedef double List[trafo3d_max_points][3];

void copy_to(double (*list)[3], const Points& points)
{
    for (std::size_t i = 0; i < points.size(); ++i)
        std::copy(rows(points)[i], rows(points)[i] + 3, list[i]);
}

bool fit(const Points& reference, const Points& measured, Solution* solution)
{
    List target, source;
    copy_to(target, reference);
    copy_to(source, measured);
    return trafo3d_3trafo(solution->T_reference_measured, target, source) == 0
           && trafo3d_opttrafo(solution->T_reference_measured, nullptr, target, source,
                               static_cast<int>(reference.size()), &solution->residual)
                  == 0;
}

double miss(Solution& solution, const bsVector& measured_place, const bsVector& place)
{
    double in[1][3], out[1][3];
    copy_to(in, {measured_place});
    trafo3d_perform(out, solution.T_reference_measured, in, 1);
    return distance(bsVector(out[0]), place);
}

double root_mean_square(const std::vector<double>& values)
{
    double sum = 0.0;
    for (double value : values)
        sum += value * value;
    return values.empty() ? 0.0 : std::sqrt(sum / double(values.size()));
}

double most_of_95_in_100(std::vector<double> values)
{
    if (values.empty())
        return 0.0;
    const std::ptrdiff_t rank = static_cast<std::ptrdiff_t>(values.size() * 95 / 100);
    std::nth_element(values.begin(), values.begin() + rank, values.end());
    return values[std::size_t(rank)];
}

} // namespace

Expectation expect_errors(const Points& reference, double noise, const Points& places, int draws)
{
    std::mt19937 random(seed);
    Draw draw(random, noise);
    Expectation expected;
    std::vector<double> residuals;
    std::vector<std::vector<double>> misses(places.size());
    for (int k = 0; k < draws; ++k) {
        Solution solution;
        draw.make(reference, places);
        if (!fit(reference, draw.measured, &solution)) {
            ++expected.failures;
            continue;
        }
        residuals.push_back(solution.residual);
        for (std::size_t i = 0; i < places.size(); ++i)
            misses[i].push_back(miss(solution, draw.places[i], places[i]));
    }
    expected.residual = root_mean_square(residuals);
    expected.closed_form_residual = noise * std::sqrt(3.0 - 6.0 / double(reference.size()));
    for (std::size_t i = 0; i < places.size(); ++i)
        expected.places.push_back({places[i], root_mean_square(misses[i]),
                                   most_of_95_in_100(misses[i]),
                                   target_error(reference, places[i], noise)});
    return expected;
}
