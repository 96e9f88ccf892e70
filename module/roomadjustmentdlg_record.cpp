// The dialog's two records and their exchange with the controller.
#include "module/roomadjustmentdlg.h"

#include "controller/extratransformation.h"
#include "controller/queries.h"
#include "controller/replytext.h"
#include "controller/versiongates.h"
#include "controller/vocabulary.h"

#include <algorithm>

namespace
{

/// Reads a text parameter of `count` numbers; `values` becomes `fallback` if that fails.
void read_numbers(IOManager* io_manager, const char* query, int count, const double* fallback,
                  double* values)
{
    ReplyText reply;
    if (!query_text(io_manager, &reply, query) || !reply_numbers(reply.text, count, values))
        std::copy(fallback, fallback + count, values);
}

bool all_equal(const double* a, const double* b, int count) { return std::equal(a, a + count, b); }

} // namespace

void RoomAdjustmentDlg2g::copyRaData(RoomAdjustmentData& dest, const RoomAdjustmentData& src)
{
    dest = src;
}

void RoomAdjustmentDlg2g::getDataFromZtc(RoomAdjustmentData& data)
{
    const RoomAdjustmentData defaults;
    if (!passes(*backend_versions, version_gate::extra_transformation)) {
        // The working record, not the one that was passed.
        ra_data = defaults;
        return;
    }
    read_numbers(io_manager, vocabulary::extra_rotation, 9, defaults.rotation, data.rotation);
    read_numbers(io_manager, vocabulary::extra_translation, 3, defaults.translation,
                 data.translation);
    data.scaling = defaults.scaling;
    query_number(io_manager, &data.scaling, vocabulary::extra_scaling);
}

void RoomAdjustmentDlg2g::sendDataToZtc()
{
    if (!passes(*backend_versions, version_gate::extra_transformation))
        return;
    const WriteMessages messages = {vocabulary::cannot_set_adjustment_rotation,
                                    vocabulary::cannot_set_adjustment_translation,
                                    vocabulary::cannot_set_adjustment_scaling};
    write_extra_transformation(io_manager, ra_data, messages);
}

bool RoomAdjustmentDlg2g::raDataChanged()
{
    RoomAdjustmentData now;
    getDataFromZtc(now);
    return !all_equal(now.rotation, ra_data_saved.rotation, 9)
           || !all_equal(now.translation, ra_data_saved.translation, 3)
           || !(now.scaling == ra_data_saved.scaling);
}
