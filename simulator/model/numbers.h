// Numbers of requests and replies, always in the C locale.
#ifndef SIMULATOR_MODEL_NUMBERS_H
#define SIMULATOR_MODEL_NUMBERS_H

#include "simulator/model/geometry.h"

#include <QByteArray>
#include <optional>
#include <vector>

namespace simulator
{

/// Exactly `count` numbers with single blanks between them, each finite; nothing otherwise.
std::optional<std::vector<double>> parse_numbers(const QByteArray& text, int count);

/// One finite number within [lowest, highest]; nothing otherwise.
std::optional<double> parse_number(const QByteArray& text, double lowest, double highest);

/// One whole number in plain decimal digits within [lowest, highest]; nothing otherwise.
std::optional<int> parse_integer(const QByteArray& text, int lowest, int highest);

/// "1" or "0"; nothing otherwise.
std::optional<bool> parse_truth(const QByteArray& text);

/// Fixed-point text; a value that rounds to zero carries no minus sign.
QByteArray fixed(double value, int decimals);
QByteArray fixed(const Vec3& v, int decimals);
/// Nine numbers, column after column.
QByteArray fixed(const Mat3& m, int decimals);
QByteArray truth(bool value);

} // namespace simulator

#endif
