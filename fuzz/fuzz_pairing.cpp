// Any bytes as two lists of up to five points: nan, infinite, huge, tiny, equal and few ones end in
// a coherent result, ordered and unordered, and the free order is never worse than the given one.
#include "fuzz/support/require.h"
#include "pairing/pointpairing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

constexpr int most_points = 5; // all orders are tried, which must stay fast

/// Takes bytes from the front of the input; zeros once there are none left.
class Bytes
{
public:
    Bytes(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    std::uint8_t byte()
    {
        const std::uint8_t value = m_size > 0 ? *m_data : 0;
        m_data += m_size > 0;
        m_size -= m_size > 0;
        return value;
    }

    /// Mostly whole millimetres, so that points fall together; sometimes any bits of a double.
    double coordinate()
    {
        const std::uint8_t kind = byte();
        if (kind < 200)
            return (kind % 8) * 100.0 - 300.0;
        if (kind < 240)
            return (kind - 220) * 0.37 + byte();
        if (kind < 248)
            return odd_number(kind - 240);
        std::uint64_t bits = 0;
        for (int i = 0; i < 8; ++i)
            bits = bits << 8 | byte();
        double value;
        std::memcpy(&value, &bits, sizeof(value));
        return value;
    }

private:
    static double odd_number(int which)
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        const double numbers[] = {std::nan(""), infinity, -infinity, 1e300,
                                  -1e300,       1e-300,   -0.0,      1e8};
        return numbers[which];
    }

    const std::uint8_t* m_data;
    std::size_t m_size;
};

static bool is_each_index_once(const PairingResult& result)
{
    unsigned int seen = 0;
    for (int i = 0; i < result.count; ++i) {
        if (result.order[i] < 0 || result.order[i] >= result.count)
            return false;
        seen |= 1u << result.order[i];
    }
    return seen == (1u << result.count) - 1u;
}

static void check(const PairingResult& result, int reference_count, int measured_count)
{
    if (reference_count >= 3 && reference_count != measured_count)
        require(result.status == pairing_counts_differ);
    if (result.status != pairing_ok)
        return;
    require(result.count == reference_count && result.count == measured_count);
    require(is_each_index_once(result));
    require(!(result.residual < 0.0));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    const std::uint8_t counts = bytes.byte();
    const int reference_count = counts % (most_points + 1);
    const int measured_count = counts < 240 ? reference_count : counts - 240;
    double reference[most_points][3], measured[16][3];
    for (double(&point)[3] : reference)
        for (double& value : point)
            value = bytes.coordinate();
    for (double(&point)[3] : measured)
        for (double& value : point)
            value = bytes.coordinate();

    PairingResult ordered, free_order;
    evaluate_pairing(reference, reference_count, measured, measured_count, true, &ordered);
    evaluate_pairing(reference, reference_count, measured, measured_count, false, &free_order);
    check(ordered, reference_count, measured_count);
    check(free_order, reference_count, measured_count);
    // The search keeps its best residual in single precision, so that an order which is worse by
    // less than that may win.
    if (ordered.status == pairing_ok && free_order.status == pairing_ok)
        require(
            !(std::max(ordered.residual, double(float(ordered.residual))) < free_order.residual));
    if (ordered.status == pairing_ok && std::isfinite(ordered.residual))
        require(free_order.status == pairing_ok);
    return 0;
}
