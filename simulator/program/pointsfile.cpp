#include "simulator/program/pointsfile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace simulator
{

QString default_points_file()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
           + "/reference-points.txt";
}

QString write_points_file(const QString& name, const QByteArray& text)
{
    QDir().mkpath(QFileInfo(name).absolutePath());
    QSaveFile file(name);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return {};
    return file.errorString();
}

} // namespace simulator
