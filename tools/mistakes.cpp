#include "tools/mistakes.h"

#include "registration/trafo3d.h"
#include "tools/mistakenames.h"
#include "tools/noise.h"
#include "tools/pairingsearch.h"
#include "tools/rigidfit.h"

namespace
{

constexpr std::size_t least_rest = 3;    // points that can be fitted
constexpr std::size_t least_telling = 4; // points whose fit cannot be good by chance alone
constexpr double tolerance_factor = 4.0; // standard deviations
constexpr double typed_decimals = 0.01;  // mm, below which no coordinate is called wrong

Points without(Points points, std::size_t left_out)
{
    points.erase(points.begin() + static_cast<std::ptrdiff_t>(left_out));
    return points;
}

/// The best pairing whose residual noise explains; without an order if there is none.
Pairing good_pairing(const Points& reference, const Points& measured, double noise)
{
    const PairingSearch search =
        find_pairings(reference, measured, {1, largest_square_sum(reference.size(), noise)});
    return search.best.empty() ? Pairing() : search.best.front();
}

/// The same for lists in the order in which the points belong together.
Pairing good_fit(const Points& reference, const Points& measured, double noise)
{
    const std::vector<int> order = counting_order(reference.size());
    const double square_sum = fit_rigidly(reference, measured, order).square_sum;
    return square_sum <= largest_square_sum(reference.size(), noise) ? Pairing{order, square_sum}
                                                                     : Pairing();
}

int left_over(const std::vector<int>& order)
{
    const int sum = std::accumulate(order.begin(), order.end(), 0);
    const int count = static_cast<int>(order.size()) + 1;
    return count * (count - 1) / 2 - sum;
}

/// Whose slip it looks like: reference points are typed, measured ones may be.
void name_side(PointMistake& mistake, const bsVector& reference, const bsVector& measured,
               const bsMatrix& T_reference_measured, double tolerance)
{
    bsMatrix T_measured_reference;
    T_reference_measured.fastInvert(T_measured_reference);
    const bsVector sides[2][2] = {{reference, T_reference_measured * measured},
                                  {measured, T_measured_reference * reference}};
    NamedMistake names[2];
    for (int k = 0; k < 2; ++k)
        names[k] = name_mistake(sides[k][0], sides[k][1], tolerance);
    const int chosen = !names[0].is_typing && names[1].is_typing ? 1 : 0;
    mistake.side = !names[chosen].is_typing ? PointMistake::either
                   : chosen == 0            ? PointMistake::reference
                                            : PointMistake::measured;
    mistake.what = names[chosen].what;
    mistake.given = sides[chosen][0];
    mistake.expected = sides[chosen][1];
}

/// The rest of the lists, and what belongs together in it.
struct Rest
{
    Points reference;
    Points measured;
    Pairing pairing;
};

PointMistake describe(const Rest& rest, const bsVector& reference, const bsVector& measured,
                      double noise)
{
    const RigidFit fit = fit_rigidly(rest.reference, rest.measured, rest.pairing.order);
    PointMistake mistake;
    mistake.residual_of_rest = fit.residual(rest.reference.size());
    const double miss = target_error(rest.reference, reference, noise);
    const double tolerance =
        tolerance_factor * std::sqrt(noise * noise + miss * miss) + typed_decimals;
    name_side(mistake, reference, measured, fit.T_reference_measured, tolerance);
    return mistake;
}

bool try_without(const Points& reference, const Points& measured, std::size_t left_out,
                 bool ordered, double noise, PointMistake* mistake)
{
    Rest rest = {without(reference, left_out), measured, Pairing()};
    int unused = static_cast<int>(left_out);
    if (ordered) {
        rest.measured = without(measured, left_out);
        rest.pairing = good_fit(rest.reference, rest.measured, noise);
    } else {
        rest.pairing = good_pairing(rest.reference, rest.measured, noise);
        unused = left_over(rest.pairing.order);
    }
    // Points on one line leave open where the one left out belongs.
    if (rest.pairing.order.empty() || std::isinf(target_error(rest.reference, bsVector(), noise)))
        return false;
    *mistake = describe(rest, reference[left_out], measured[std::size_t(unused)], noise);
    mistake->reference_index = static_cast<int>(left_out);
    mistake->measured_index = unused;
    return true;
}

bool fits(const Points& reference, const Points& measured, bool ordered, double noise)
{
    return !(ordered ? good_fit(reference, measured, noise)
                     : good_pairing(reference, measured, noise))
                .order.empty();
}

double spread(const Points& points)
{
    const bsVector center = centroid(points);
    double sum = 0.0;
    for (const bsVector& point : points)
        sum += bsVector::dotProduct(point - center, point - center);
    return std::sqrt(sum / double(points.size()));
}

Points scaled(Points points, double factor)
{
    for (bsVector& point : points)
        point *= factor;
    return points;
}

Points mirrored(Points points)
{
    for (bsVector& point : points)
        point.x = -point.x;
    return points;
}

QString scale_text(double factor)
{
    const QString name = name_factor(factor);
    const QString amount =
        name.isEmpty() ? QString::number(std::max(factor, 1.0 / factor), 'f', 3) : name;
    return QString::fromLatin1("the reference points are %1 times too %2%3")
        .arg(amount, QLatin1String(factor > 1.0 ? "small" : "large"),
             QLatin1String(name == QLatin1String("1000") && factor > 1.0 ? ", as in metres" : ""));
}

} // namespace

std::vector<PointMistake> find_point_mistakes(const Points& reference, const Points& measured,
                                              bool ordered, double noise)
{
    std::vector<PointMistake> found;
    if (reference.size() <= least_rest || reference.size() > trafo3d_max_points)
        return found;
    for (std::size_t i = 0; i < reference.size(); ++i) {
        PointMistake mistake;
        if (try_without(reference, measured, i, ordered, noise, &mistake))
            found.push_back(mistake);
    }
    std::stable_partition(found.begin(), found.end(), [](const PointMistake& mistake) {
        return mistake.side != PointMistake::either;
    });
    return found;
}

QString find_list_mistake(const Points& reference, const Points& measured, bool ordered,
                          double noise)
{
    // A mirror image of three points, or of any flat object, is the object turned over.
    if (reference.size() < least_telling || reference.size() > trafo3d_max_points)
        return QString();
    const double factor = spread(measured) / spread(reference);
    if (std::isfinite(factor) && factor > 0.0
        && fits(scaled(reference, factor), measured, ordered, noise))
        return scale_text(factor);
    if (fits(mirrored(reference), measured, ordered, noise))
        return QString::fromLatin1("the reference points are a mirror image of the measured ones: "
                                   "in all of them two axes are swapped, or one axis has the "
                                   "wrong sign");
    return QString();
}

QStringList find_surplus_points(const Points& reference, const Points& measured, double noise)
{
    const bool more_measured = measured.size() > reference.size();
    const Points& shorter = more_measured ? reference : measured;
    const Points& longer = more_measured ? measured : reference;
    QStringList surplus;
    if (shorter.size() < least_telling || longer.size() > trafo3d_max_points)
        return surplus;
    const std::vector<int> order = good_pairing(shorter, longer, noise).order;
    for (int i = 0; !order.empty() && i < static_cast<int>(longer.size()); ++i)
        if (std::find(order.begin(), order.end(), i) == order.end())
            surplus << QString::number(i + 1);
    return surplus;
}
