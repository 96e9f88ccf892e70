// The tracking controller: its settings and state, and the positions that it reports.
#ifndef SIMULATOR_MODEL_CONTROLLER_H
#define SIMULATOR_MODEL_CONTROLLER_H

#include "simulator/model/geometry.h"
#include "simulator/model/setup.h"
#include "simulator/model/world.h"

#include <QByteArray>
#include <vector>

namespace simulator
{

/// Why something was not done, in plain words; null if it was done. Nothing changes on refusal.
using Refusal = const char*;

/// The change that turns calibrated room coordinates into reported ones: turned and shifted
/// first, scaled last.
struct ExtraTransformation
{
    Mat3 rotation;
    Vec3 translation; ///< mm
    double scaling = 1.0;
};

Vec3 operator*(const ExtraTransformation& extra, const Vec3& point);

/// Frames a second, which the time stamps follow exactly.
constexpr int frame_rate = 60;

/// Cameras and tools are counted from 0 here. Keeps that tracking runs only while it is available
/// and the room calibrated, and that a tool measures only while it is tracked.
class Controller
{
public:
    static constexpr double max_translation = 1e6; ///< mm, either way
    static constexpr double max_scaling = 1000.0;
    static constexpr double max_duration = 60.0;    ///< s
    static constexpr double max_tolerance = 1000.0; ///< mm

    /// Settings of a Measurement Tool, and its running measurement.
    struct ToolState
    {
        bool tip_calibrated = true;
        double tolerance = 1.5; ///< mm
        double duration = 1.0;  ///< s
        int frames_to_measure = 0;
    };

    /// `world` must outlive the controller.
    Controller(const Setup& setup, const World& world);

    const Version& version() const { return m_played; }
    int camera_count() const { return int(m_world.cameras.size()); }
    int tool_count() const { return int(m_tools.size()); }

    /// Takes the room calibration away ("none") or makes one. One that was loaded has no last
    /// coordinate type. Tracking ends.
    Refusal calibrate(const QByteArray& type, bool loaded);
    bool is_calibrated() const { return m_type != "none"; }
    const QByteArray& coordinate_type() const { return m_type; }
    const QByteArray& last_coordinate_type() const { return m_last_type; }
    /// Takes the room data of one camera away, or gives it back.
    void set_room_data(int camera, bool present);
    bool has_room(int camera) const;

    /// T_world_camera
    const Pose& camera(int index) const { return m_world.cameras.at(index); }

    /// T_room_world; the room must be calibrated.
    const Pose& room() const { return m_T_room_world; }
    Vec3 reported(const Vec3& world_point) const;
    Mat3 reported(const Mat3& world_rotation) const;

    const ExtraTransformation& extra() const { return m_extra_transformation; }
    Refusal set_rotation(const Mat3& rotation);
    Refusal set_translation(const Vec3& translation);
    Refusal set_scaling(double scaling);

    bool is_locked() const { return m_locked; }
    void set_locked(bool now_locked) { m_locked = now_locked; }
    bool is_licensed() const { return m_licensed; }
    void set_licensed(bool now_licensed) { m_licensed = now_licensed; }
    bool is_available() const { return m_available; }
    void set_available(bool now_available);

    bool is_tracking() const { return m_tracking; }
    Refusal start_tracking();
    void stop_tracking();

    const ToolState& tool(int index) const { return m_tools.at(index); }
    void set_tip_calibrated(int index, bool calibrated);
    void set_tolerance(int index, double tolerance) { m_tools.at(index).tolerance = tolerance; }
    void set_duration(int index, double duration) { m_tools.at(index).duration = duration; }
    /// The tip is known and seen, whether tracking runs or not.
    bool is_seen(int index) const;
    bool is_measuring(int index) const { return m_tools.at(index).frames_to_measure > 0; }
    /// Raises the measuring flag for the tool's duration, counted from now if it is up already.
    Refusal start_measurement(int index);

    /// Begins the next frame: time goes on by 1 / frame_rate, lost tools stop measuring.
    void begin_frame();
    /// Ends it: what has been reported counts towards a running measurement. Returns the tools
    /// whose measurement is complete with it.
    std::vector<int> end_frame();
    unsigned int frame() const { return m_frame_number; }
    double time_stamp() const { return double(m_frame_number) / frame_rate; }

private:
    const World& m_world;
    Version m_played;
    QByteArray m_type;
    QByteArray m_last_type;
    Pose m_T_room_world;
    std::vector<bool> m_room_data;
    std::vector<ToolState> m_tools;
    ExtraTransformation m_extra_transformation;
    unsigned int m_frame_number = 0;
    bool m_locked = false;
    bool m_licensed = true;
    bool m_available = true;
    bool m_tracking = false;
};

} // namespace simulator

#endif
