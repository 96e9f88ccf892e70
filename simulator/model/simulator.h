// The whole simulator as a library: answers requests and returns the datagrams to be sent.
#ifndef SIMULATOR_MODEL_SIMULATOR_H
#define SIMULATOR_MODEL_SIMULATOR_H

#include "simulator/model/controller.h"
#include "simulator/model/datalines.h"
#include "simulator/model/faults.h"
#include "simulator/model/setup.h"
#include "simulator/model/world.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

namespace simulator
{

struct Answer
{
    QByteArray text;  ///< without line end
    int delay_ms = 0; ///< how late it is to be given
};

/// Time goes on with step() only.
class Simulator
{
public:
    static constexpr int max_request_length = 65536;

    explicit Simulator(const Setup& setup);
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    /// `request` is one line without its end.
    Answer answer(const QByteArray& request);

    /// Lets one frame pass and returns the datagrams to be sent for it.
    std::vector<QByteArray> step();

    /// UDP port of the loopback address that wants the data; 0 if none does.
    int data_port() const { return m_port; }
    bool is_stopped() const { return m_stopped; }
    void stop() { m_stopped = true; }
    bool set_data_port(const QByteArray& text);

    /// Writes the object's points as a reference-point file. Returns why that failed, empty if it
    /// did not.
    QString save_points(const QString& file_name) const;

    /// Replaces a file by this text, and returns why it could not. Whoever may write files sets it.
    std::function<QString(const QString& file_name, const QByteArray& text)> write_file;
    QString points_file; ///< where a request has the points saved

    World world;
    Controller controller;
    Faults faults;
    int source_port = 0; ///< UDP port that the data come from; 0 if not known
    double deviation = Noise::default_deviation; ///< of reported positions, mm per axis

private:
    QByteArray reply(const QByteArray& request);

    Noise m_noise;
    int m_port = 0;
    bool m_stopped = false;
};

} // namespace simulator

#endif
