#include "simulator/model/referencepoints.h"

#include "simulator/model/numbers.h"

namespace simulator
{

QByteArray reference_point_file(const std::vector<Vec3>& points)
{
    QByteArray text;
    for (const Vec3& point : points)
        text +=
            QByteArray::number(text.count('\n') + 1) + ' ' + fixed(point, point_decimals) + '\n';
    return text;
}

QByteArray reference_point_table(const std::vector<Vec3>& points)
{
    QByteArray text;
    for (const Vec3& point : points)
        text += fixed(point, point_decimals).replace(' ', '\t') + '\n';
    return text;
}

} // namespace simulator
