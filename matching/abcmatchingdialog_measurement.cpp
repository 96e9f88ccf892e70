// The tip measurement: from the controller's data lines to one measured point.
//
// set_ascii_data, analyse_data and what they call may run on the host's data thread and touch no
// widget. The slots run on the GUI thread.
#include "matching/abcmatchingdialog.h"

#include "controller/queries.h"
#include "controller/vocabulary.h"
#include "tracking/zetrakdatatypes.h"
#include "tracking/zetrakparser.h"

#include <QPointer>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <cstring>

using vocabulary::show_error;
using namespace ZetrakSDK_Datatypes;

namespace
{

const double lowest_tracked_quality = 1.0;
const double steps_per_second = 100.0; // of the progress bar
const int measuring_flag = 0;          // button of the tool
const int first_start_button = 1;
const int last_start_button = 3;
// Many minutes at any real data rate; a flag that never falls must not eat the memory.
const std::size_t most_samples = 100000;
const std::size_t most_measured_points = 1000; // a fit takes far fewer

/// Progress bar units, bounded to what an int holds whatever the controller says.
int progress_steps(double seconds)
{
    const double most = 1e9;
    const double steps = steps_per_second * seconds;
    return steps > 0.0 ? static_cast<int>(std::min(steps, most)) : 0;
}

bool is_start_button_pressed(const Zetrak_MeaTool_Type_d& tool)
{
    for (int i = first_start_button; i <= last_start_button; ++i)
        if (tool.button[i] == 1)
            return true;
    return false;
}

} // namespace

int AbcMatchingDialog::set_ascii_data(const char* line_type, const char* line)
{
    if (!parser)
        return -1;
    if (!line_type || !line)
        return -2;
    const void* end = std::memchr(line, '\0', line_buffer_size);
    if (!end)
        return -2;
    std::memcpy(line_buffer, line, static_cast<const char*>(end) - line + 1);
    char* cursor = line_buffer;
    if (!parser->parseLine(&cursor))
        return -2;
    if (std::strncmp(line_type, "6dmt ", 5) == 0)
        return 0;
    // On the GUI thread, the slots behind the signals may end this dialog.
    const QPointer<AbcMatchingDialog> self(this);
    for (int i = 0; self && i < meatool_count && i < parser->getNumMeaTool(); ++i)
        analyse_data(i);
    return 0;
}

bool AbcMatchingDialog::isWandButtonPressed()
{
    if (!parser)
        return false;
    for (int i = 0; i < parser->getNumWandStick(); ++i) {
        const Zetrak_WandStick_Type_d* stick = parser->getWandStick(i);
        for (int button = 0; button < stick->num_button; ++button)
            if (stick->button[button] > 0)
                return true;
    }
    return false;
}

void AbcMatchingDialog::analyse_data(int index)
{
    const Zetrak_MeaTool_Type_d* tool = parser->getMeaTool(index);
    if (!tool || tool->id + 1 != meatool_id)
        return;
    const bool tracked = !(tool->quality < lowest_tracked_quality);
    meatool_tracked = tracked;
    if (tracked) {
        // Not edge-triggered: a held button asks again with every line.
        if (is_start_button_pressed(*tool) || isWandButtonPressed()) {
            emit startTipMea();
            return;
        }
        if (tool->button[measuring_flag] == 1) {
            takeSample(tool->loc);
            return;
        }
    }
    finishMeasurement();
}

void AbcMatchingDialog::takeSample(const double* location)
{
    if (samples.size() >= most_samples) {
        loseSamples();
        return;
    }
    if (samples_lost)
        return;
    Pos3dTime sample;
    sample.time_stamp = parser->getTimeStamp();
    sample.position = bsVector(location);
    samples.push_back(sample);
    if (samples.size() > 1) {
        elapsed_time = samples.back().time_stamp - samples.front().time_stamp;
        emit do_updateProgressbar(elapsed_time);
    } else {
        elapsed_time = 0.0;
    }
}

/// Gives the measurement up; nothing more is collected until the tool's flag falls.
void AbcMatchingDialog::loseSamples()
{
    samples.clear();
    elapsed_time = 0.0;
    samples_lost = true;
    emit do_setTrafoText(
        QString::fromLatin1("Measurement failed :\nThe tool went on measuring for more than %1 "
                            "samples.")
            .arg(most_samples));
}

/// Reached by every line without a sample: judges what was collected, if anything, and starts anew.
void AbcMatchingDialog::finishMeasurement()
{
    // Without a sample there is nothing to judge, even if the controller names no duration at all.
    const bool is_full_length = elapsed_time >= measurement_duration && !samples.empty();
    const bool is_interrupted = !is_full_length && elapsed_time > 0.0;
    double variance = 0.0;
    double standard_deviation = 0.0;
    if (is_full_length)
        calcMeanPos(variance, standard_deviation);
    // All is at rest again before the slots run: on the GUI thread, one of them may run an event
    // loop, in which the next lines arrive.
    samples.clear();
    samples_lost = false;
    elapsed_time = 0.0;
    const QPointer<AbcMatchingDialog> self(this);
    if (is_full_length)
        announce(variance, standard_deviation);
    else if (is_interrupted)
        // The tool was lost, or its flag fell early. The text is the same for all.
        emit do_setTrafoText(
            QString::fromLatin1("Measurement failed :\nTip moved too much during measurement"));
    if (self)
        emit do_updateProgressbar(0.0);
}

void AbcMatchingDialog::announce(double variance, double standard_deviation)
{
    if (standard_deviation <= max_deviation) {
        emit do_setTrafoText(QString());
        emit do_addMeasuredPoint();
        return;
    }
    emit do_setTrafoText(
        QString::fromLatin1("Measurement failed :\nTip moved too much during measurement:\n"
                            "\to Variance = %1\n\to Standard deviation = %2")
            .arg(variance, 0, 'f', 2)
            .arg(standard_deviation, 0, 'f', 2));
}

void AbcMatchingDialog::calcMeanPos(double& variance, double& standardDeviation)
{
    bsVector mean(0.0, 0.0, 0.0);
    const double count = static_cast<double>(samples.size());
    for (const Pos3dTime& sample : samples)
        mean += sample.position;
    if (!samples.empty())
        mean /= count;
    mean_position[0] = mean.x;
    mean_position[1] = mean.y;
    mean_position[2] = mean.z;
    if (samples.empty())
        return;
    for (const Pos3dTime& sample : samples) {
        const bsVector offset = sample.position - mean;
        variance += bsVector::dotProduct(offset, offset);
    }
    variance /= count;
    standardDeviation = std::sqrt(variance);
}

double AbcMatchingDialog::getMaxDeviation()
{
    double deviation = default_deviation;
    const int tool = meatool_id;
    if (query_number(io_manager, &deviation, vocabulary::tip_tolerance, tool))
        return deviation;
    show_error(io_manager, vocabulary::cannot_get_tip_tolerance);
    return default_deviation;
}

/// Every line with a button held down asks for a start. Lines from another thread would queue more
/// of them than can be made, as each waits for the controller three times: only one is queued at a
/// time.
void AbcMatchingDialog::requestStart()
{
    if (QThread::currentThread() == thread())
        on_w_measureButton_clicked();
    else if (!start_pending.exchange(true))
        QMetaObject::invokeMethod(this, "makePendingStart", Qt::QueuedConnection);
}

void AbcMatchingDialog::makePendingStart()
{
    const QPointer<AbcMatchingDialog> self(this);
    on_w_measureButton_clicked();
    if (self)
        start_pending = false;
}

void AbcMatchingDialog::on_w_measureButton_clicked()
{
    // A message of the host may run an event loop, in which the button is still held.
    if (start_running || ui.comboBox_meatool->currentIndex() < 0)
        return;
    const QPointer<AbcMatchingDialog> self(this);
    start_running = true;
    startMeasurement();
    if (self)
        start_running = false;
}

/// This dialog may end in here.
void AbcMatchingDialog::startMeasurement()
{
    const int tool = meatool_id;
    double duration = default_duration;
    query_number(io_manager, &duration, vocabulary::measurement_duration, tool);
    measurement_duration = duration;
    ui.progressBar->setMinimum(0);
    ui.progressBar->setMaximum(progress_steps(duration));
    ui.progressBar->setValue(0);
    // The status timer enables it again at its next tick if the tool is tracked.
    ui.w_measureButton->setEnabled(false);
    const QPointer<AbcMatchingDialog> self(this);
    const double deviation = getMaxDeviation();
    if (!self)
        return;
    max_deviation = deviation;
    char reply[IOManager::buffer_size] = "";
    if (io_manager->send_command(reply, vocabulary::start_measurement, tool) != 0)
        show_error(io_manager, vocabulary::cannot_start_measurement);
}

void AbcMatchingDialog::addMeasuredPoint()
{
    const bsVector point(mean_position[0], mean_position[1], mean_position[2]);
    if (ui.w_replaceCheckBox->isChecked() && ui.w_replaceCheckBox->isEnabled()) {
        const int row = ui.tableWidget_measuredPoints->currentRow();
        if (row >= 0 && row < static_cast<int>(measured_points.size())) {
            measured_points[row] = point;
            setPoint_tableWidget_measuredPoints(point);
        }
    } else if (measured_points.size() < most_measured_points) {
        measured_points.push_back(point);
        addPoint_tableWidget_measuredPoints(point);
    } else {
        setTrafoText(QString::fromLatin1("Measurement failed :\nThe table holds no more than %1 "
                                         "points.")
                         .arg(most_measured_points));
        return;
    }
    enableDisableRemoveMeaPoint();
    enableDisableClearMeaPoints();
    checkTrafo();
}

void AbcMatchingDialog::updateProgressbar(const double& seconds)
{
    ui.progressBar->setValue(progress_steps(seconds));
}

void AbcMatchingDialog::setTrafoText(const QString& text) { ui.w_trafoText->setPlainText(text); }
