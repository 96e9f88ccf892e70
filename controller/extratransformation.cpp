#include "controller/extratransformation.h"

#include "controller/roomadjustmentdata.h"
#include "controller/vocabulary.h"

namespace
{

void tell(IOManager* io_manager, const char* message)
{
    if (message)
        vocabulary::show_error(io_manager, message);
}

} // namespace

void write_extra_transformation(IOManager* io_manager, RoomAdjustmentData data,
                                const WriteMessages& messages)
{
    const double* r = data.rotation;
    const double* t = data.translation;
    if (io_manager->set_param_value(vocabulary::set_extra_rotation, r[0], r[1], r[2], r[3], r[4],
                                    r[5], r[6], r[7], r[8])
        != 0)
        tell(io_manager, messages.rotation);
    if (io_manager->set_param_value(vocabulary::set_extra_translation, t[0], t[1], t[2]) != 0)
        tell(io_manager, messages.translation);
    if (io_manager->set_param_value(vocabulary::set_extra_scaling, data.scaling) != 0)
        tell(io_manager, messages.scaling);
}
