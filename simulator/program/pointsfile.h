// Writes the object's points where people and programs find them.
#ifndef SIMULATOR_PROGRAM_POINTSFILE_H
#define SIMULATOR_PROGRAM_POINTSFILE_H

#include <QByteArray>
#include <QString>

namespace simulator
{

/// Where the points go unless told otherwise: a file among the user's own data. Needs an
/// application object, whose name is in the path.
QString default_points_file();

/// Replaces the file as a whole and makes the folders above it. Returns why it could not be
/// written, empty if it was; the old file is then as it was.
QString write_points_file(const QString& name, const QByteArray& text);

} // namespace simulator

#endif
