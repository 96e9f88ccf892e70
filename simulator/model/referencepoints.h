// The object's points as texts that a person can take along.
#ifndef SIMULATOR_MODEL_REFERENCEPOINTS_H
#define SIMULATOR_MODEL_REFERENCEPOINTS_H

#include "simulator/model/geometry.h"

#include <QByteArray>
#include <vector>

namespace simulator
{

/// In mm with two decimals, in the object's own coordinates.
constexpr int point_decimals = 2;

/// A reference-point file: lines "NUMBER X Y Z", numbered from 1, with a line feed behind each.
QByteArray reference_point_file(const std::vector<Vec3>& points);

/// Rows of a table as spreadsheets exchange them: "X<tab>Y<tab>Z" with a line feed behind each.
QByteArray reference_point_table(const std::vector<Vec3>& points);

} // namespace simulator

#endif
