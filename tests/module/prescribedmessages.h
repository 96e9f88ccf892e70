// What the module says to the user about a failed call.
#ifndef TESTS_MODULE_PRESCRIBEDMESSAGES_H
#define TESTS_MODULE_PRESCRIBEDMESSAGES_H

#include <algorithm>
#include <string>
#include <vector>

/// The messages of a failed call, by the beginning of the call; an empty one is silence.
const struct
{
    const char* call;
    std::vector<std::string> texts;
} prescribed_messages[] = {
    {"do zetrak2 tracking start", {"Error: Unable to start tracking"}},
    {"do zetrak2 tracking stop", {"Error: Unable to stop tracking"}},
    {"do zetrak2 measurementtool", {"Error : Unable to start measurement tool measurement"}},
    {"get status active", {"Error: Unable to check tracking status"}},
    {"get camera number_of_cameras", {"Error: Unable to get number of cameras"}},
    {"get tracking room", {"Error: Unable to get room cal of camera"}},
    {"get tracking extra_rotation", {"", "Error: Unable to get info extra rotation"}},
    {"get tracking extra_translation", {"", "Error: Unable to get info extra translation"}},
    {"get tracking extra_scaling", {"", "Error: Unable to get info extra scaling"}},
    {"set tracking extra_rotation",
     {"Error: Unable to set room adjustment rotation", "Error: Unable to set extra rotation",
      "Error: Unable to set extra rotation default"}},
    {"set tracking extra_translation",
     {"Error: Unable to set room adjustment translation", "Error: Unable to set extra translation",
      "Error: Unable to set extra translation default"}},
    {"set tracking extra_scaling",
     {"Error: Unable to set room adjustment scaling", "Error: Unable to set extra scaling",
      "Error: Unable to set extra scaling default"}},
    {"get roomcal", {"Error: Cannot require room calibration coordinate type."}},
    {"get measurementtool number_of_tools", {"Error : Unable to get number of measurement tools"}},
    {"get measurementtool tip_calibrated", {"Error : Unable to get info of tip calibration"}},
    {"get measurementtool measurement_tip_tolerance",
     {"Error : Unable to get tip tolerance of measurement tool"}},
    {"get ", {""}},
};

inline bool begins_with(const std::string& text, const std::string& beginning)
{
    return text.compare(0, beginning.size(), beginning) == 0;
}

/// Whether `text`, empty for none, belongs to the log entry of a failed call or, `odd`, of one with
/// an odd answer, which the module may also take as it is.
inline bool is_prescribed(const std::string& call, const std::string& text, bool odd)
{
    for (const auto& message : prescribed_messages)
        if (begins_with(call, message.call))
            return (odd && text.empty())
                   || std::count(message.texts.begin(), message.texts.end(), text) == 1;
    return text.empty();
}

#endif
