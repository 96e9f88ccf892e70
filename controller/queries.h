// Queries whose answers are doubted before anything is done with them.
//
// `format` names the parameter, with at most one number in it: that of a camera or a tool. Nothing
// is shown to the user here. Without success the value stays as it was.
#ifndef CONTROLLER_QUERIES_H
#define CONTROLLER_QUERIES_H

#include "contract/iomanager.h"

/// What a host may write, and behind it a terminator for a host that forgets its own.
struct ReplyText
{
    char text[IOManager::buffer_size + 1];

    ReplyText();
    bool is(const char* word) const;
};

/// Cameras and tools above this number are not believed.
const int largest_count = 4096;

bool query_text(IOManager* io_manager, ReplyText* reply, const char* format, int number = 0);

/// Fails for what is not finite.
bool query_number(IOManager* io_manager, double* value, const char* format, int number = 0);

/// All `count` numbers or none; fails if one of them is not finite. At most nine.
bool query_numbers(IOManager* io_manager, double* values, int count, const char* format);

/// Fails below 0 and above `largest_count`.
bool query_count(IOManager* io_manager, int* count, const char* format);

#endif
