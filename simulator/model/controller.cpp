#include "simulator/model/controller.h"

#include <algorithm>
#include <cmath>

namespace simulator
{

namespace
{

constexpr double rotation_tolerance = 1e-5;
constexpr Refusal done = nullptr;
constexpr Refusal config_locked = "the configuration is locked";

/// The consumer judges a measurement by the span from the first stamp to the last one, and stamps
/// are rounded on the line: one frame to close the span, one more to be safe.
constexpr int frames_beyond_duration = 2;

bool within(double value, double limit) { return std::abs(value) <= limit; }

} // namespace

Vec3 operator*(const ExtraTransformation& extra, const Vec3& point)
{
    return extra.scaling * (extra.rotation * point + extra.translation);
}

Controller::Controller(const Setup& setup, const World& world)
    : m_world(world), m_played(setup.version), m_room_data(setup.cameras, true),
      m_tools(setup.tools)
{
    calibrate(setup.coordinate_type, false);
}

Refusal Controller::calibrate(const QByteArray& new_type, bool loaded)
{
    if (!is_coordinate_type(new_type))
        return "unknown coordinate type";
    stop_tracking();
    m_type = new_type;
    m_last_type = loaded ? QByteArray("none") : new_type;
    if (is_calibrated())
        m_T_room_world = calibration(m_type, m_world.cameras);
    return done;
}

void Controller::set_room_data(int camera, bool present) { m_room_data.at(camera) = present; }

bool Controller::has_room(int camera) const { return is_calibrated() && m_room_data.at(camera); }

Vec3 Controller::reported(const Vec3& world_point) const
{
    return m_extra_transformation * (m_T_room_world * world_point);
}

Mat3 Controller::reported(const Mat3& world_rotation) const
{
    return m_extra_transformation.rotation * m_T_room_world.rotation * world_rotation;
}

Refusal Controller::set_rotation(const Mat3& rotation)
{
    if (m_locked)
        return config_locked;
    if (!is_rotation(rotation, rotation_tolerance))
        return "not a rotation";
    m_extra_transformation.rotation = rotation;
    return done;
}

Refusal Controller::set_translation(const Vec3& t)
{
    if (m_locked)
        return config_locked;
    if (!within(t.x, max_translation) || !within(t.y, max_translation)
        || !within(t.z, max_translation))
        return "translation out of range";
    m_extra_transformation.translation = t;
    return done;
}

Refusal Controller::set_scaling(double scaling)
{
    if (m_locked)
        return config_locked;
    if (!(scaling > 0.0) || scaling > max_scaling)
        return "scaling out of range";
    m_extra_transformation.scaling = scaling;
    return done;
}

void Controller::set_available(bool now_available)
{
    m_available = now_available;
    if (!m_available)
        stop_tracking();
}

Refusal Controller::start_tracking()
{
    if (!m_available)
        return "tracking is not available";
    if (!is_calibrated())
        return "no room calibration";
    m_tracking = true;
    return done;
}

void Controller::stop_tracking()
{
    m_tracking = false;
    for (ToolState& tool : m_tools)
        tool.frames_to_measure = 0;
}

void Controller::set_tip_calibrated(int index, bool calibrated)
{
    m_tools.at(index).tip_calibrated = calibrated;
}

bool Controller::is_seen(int index) const
{
    return m_tools.at(index).tip_calibrated && !m_world.tools.at(index).hidden;
}

Refusal Controller::start_measurement(int index)
{
    if (!m_tracking)
        return "tracking does not run";
    if (!m_tools.at(index).tip_calibrated)
        return "the tip is not calibrated";
    if (!is_seen(index))
        return "the tool is not seen";
    ToolState& tool = m_tools.at(index);
    tool.frames_to_measure = int(std::ceil(tool.duration * frame_rate)) + frames_beyond_duration;
    return done;
}

void Controller::begin_frame()
{
    ++m_frame_number;
    for (int i = 0; i < tool_count(); ++i)
        if (!is_seen(i))
            m_tools[i].frames_to_measure = 0;
}

std::vector<int> Controller::end_frame()
{
    std::vector<int> complete;
    for (size_t i = 0; i < m_tools.size(); ++i) {
        int& left = m_tools[i].frames_to_measure;
        if (left == 1)
            complete.push_back(int(i));
        left = std::max(0, left - 1);
    }
    return complete;
}

} // namespace simulator
