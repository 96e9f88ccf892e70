// The tip measurement: from the controller's data lines to one measured point.
//
// set_ascii_data, analyse_data and what they call may run on the host's data thread and touch no
// widget. The slots run on the GUI thread.
#include "matching/abcmatchingdialog.h"

#include "controller/vocabulary.h"
#include "tracking/zetrakdatatypes.h"
#include "tracking/zetrakparser.h"

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
// Hours at any real data rate; a flag that never falls must not eat the memory.
const std::size_t most_samples = 1 << 20;

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
    const void* end = std::memchr(line, '\0', line_buffer_size);
    if (!end)
        return -2;
    std::memcpy(line_buffer, line, static_cast<const char*>(end) - line + 1);
    char* cursor = line_buffer;
    if (!parser->parseLine(&cursor))
        return -2;
    if (std::strncmp(line_type, "6dmt ", 5) == 0)
        return 0;
    const int count = meatool_count;
    for (int i = 0; i < count && i < parser->getNumMeaTool(); ++i)
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
    Pos3dTime sample;
    sample.time_stamp = parser->getTimeStamp();
    sample.position = bsVector(location);
    if (samples.size() < most_samples)
        samples.push_back(sample);
    if (samples.size() > 1) {
        elapsed_time = samples.back().time_stamp - samples.front().time_stamp;
        emit do_updateProgressbar(elapsed_time);
    } else {
        elapsed_time = 0.0;
    }
}

/// Reached by every line without a sample: judges what was collected, if anything, and starts anew.
void AbcMatchingDialog::finishMeasurement()
{
    // Without a sample there is nothing to judge, even if the controller names no duration at all.
    if (elapsed_time >= measurement_duration && !samples.empty())
        judgeMeasurement();
    else if (elapsed_time > 0.0)
        // Too short: the tool was lost, or its flag fell early. The text is the same for all.
        emit do_setTrafoText(
            QString::fromLatin1("Measurement failed :\nTip moved too much during measurement"));
    samples.clear();
    elapsed_time = 0.0;
    emit do_updateProgressbar(0.0);
}

void AbcMatchingDialog::judgeMeasurement()
{
    double variance = 0.0;
    double standard_deviation = 0.0;
    calcMeanPos(variance, standard_deviation);
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
    if (io_manager->get_param_double(&deviation, vocabulary::tip_tolerance, tool) == 0)
        return deviation;
    show_error(io_manager, vocabulary::cannot_get_tip_tolerance);
    return default_deviation;
}

void AbcMatchingDialog::on_w_measureButton_clicked()
{
    if (ui.comboBox_meatool->currentIndex() < 0)
        return;
    const int tool = meatool_id;
    double duration = default_duration;
    if (io_manager->get_param_double(&duration, vocabulary::measurement_duration, tool) != 0)
        duration = default_duration;
    measurement_duration = duration;
    ui.progressBar->setMinimum(0);
    ui.progressBar->setMaximum(progress_steps(duration));
    ui.progressBar->setValue(0);
    // The status timer enables it again at its next tick if the tool is tracked.
    ui.w_measureButton->setEnabled(false);
    max_deviation = getMaxDeviation();
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
    } else {
        measured_points.push_back(point);
        addPoint_tableWidget_measuredPoints(point);
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
