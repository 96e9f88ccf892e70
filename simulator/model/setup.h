// What a simulator is started with.
#ifndef SIMULATOR_MODEL_SETUP_H
#define SIMULATOR_MODEL_SETUP_H

#include <QByteArray>

namespace simulator
{

/// Version of the backend that is played. Parameters that came later are unknown to it.
struct Version
{
    int major = 1;
    int minor = 20;
    int patch = 0;
};

inline bool is_at_least(const Version& version, int major, int minor)
{
    return version.major != major ? version.major > major : version.minor >= minor;
}

struct Setup
{
    static constexpr int max_cameras = 200;
    static constexpr int max_tools = 20;

    int cameras = 4; ///< 0 to max_cameras
    int tools = 2;   ///< 0 to max_tools
    Version version;
    unsigned int seed = 1; ///< of the object's pose and of the noise
    QByteArray coordinate_type = "normal";
};

} // namespace simulator

#endif
