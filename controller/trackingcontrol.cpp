#include "controller/trackingcontrol.h"

#include "controller/queries.h"
#include "controller/vocabulary.h"

using vocabulary::show_error;

int start_tracking(IOManager* io_manager)
{
    char reply[IOManager::buffer_size] = "";
    if (io_manager->send_command(reply, vocabulary::start_tracking) != 0) {
        show_error(io_manager, vocabulary::cannot_start_tracking);
        return 1;
    }
    return 0;
}

int stop_tracking(IOManager* io_manager)
{
    ReplyText reply;
    if (!query_text(io_manager, &reply, vocabulary::status_active)) {
        show_error(io_manager, vocabulary::cannot_check_status);
        return 1;
    }
    if (!reply.is(vocabulary::reply_measuring))
        return 0;
    if (io_manager->send_command(reply.text, vocabulary::stop_tracking) != 0) {
        show_error(io_manager, vocabulary::cannot_stop_tracking);
        return 1;
    }
    return 0;
}
