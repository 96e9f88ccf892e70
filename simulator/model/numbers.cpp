#include "simulator/model/numbers.h"

#include <QList>
#include <algorithm>
#include <cmath>

namespace simulator
{

namespace
{

std::optional<double> finite_number(const QByteArray& text)
{
    const bool starts_like_a_number =
        !text.isEmpty() && QByteArray("+-.0123456789").contains(text[0]);
    bool converted = false;
    const double value = text.toDouble(&converted);
    if (!starts_like_a_number || !converted || !std::isfinite(value))
        return std::nullopt;
    return value;
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

} // namespace

std::optional<std::vector<double>> parse_numbers(const QByteArray& text, int count)
{
    const QList<QByteArray> words = text.split(' ');
    if (words.size() != count)
        return std::nullopt;
    std::vector<double> values;
    for (const QByteArray& word : words) {
        const auto value = finite_number(word);
        if (!value)
            return std::nullopt;
        values.push_back(*value);
    }
    return values;
}

std::optional<double> parse_number(const QByteArray& text, double lowest, double highest)
{
    const auto value = finite_number(text);
    return value && *value >= lowest && *value <= highest ? value : std::nullopt;
}

std::optional<int> parse_integer(const QByteArray& text, int lowest, int highest)
{
    bool converted = false;
    const int value = text.toInt(&converted);
    if (!converted || !std::all_of(text.begin(), text.end(), is_digit))
        return std::nullopt;
    return value >= lowest && value <= highest ? std::optional<int>(value) : std::nullopt;
}

std::optional<bool> parse_truth(const QByteArray& text)
{
    if (text != "0" && text != "1")
        return std::nullopt;
    return text == "1";
}

QByteArray fixed(double value, int decimals)
{
    const QByteArray text = QByteArray::number(value, 'f', decimals);
    const bool is_zero =
        std::none_of(text.begin(), text.end(), [](char c) { return is_digit(c) && c != '0'; });
    return is_zero && text.startsWith('-') ? text.mid(1) : text;
}

QByteArray fixed(const Vec3& v, int decimals)
{
    return fixed(v.x, decimals) + ' ' + fixed(v.y, decimals) + ' ' + fixed(v.z, decimals);
}

QByteArray fixed(const Mat3& m, int decimals)
{
    return fixed(m.column(0), decimals) + ' ' + fixed(m.column(1), decimals) + ' '
           + fixed(m.column(2), decimals);
}

QByteArray truth(bool value) { return value ? "1" : "0"; }

} // namespace simulator
