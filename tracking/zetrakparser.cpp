#include "tracking/zetrakparser.h"

#include "tracking/linegroups.h"

#include <cstring>
#include <new>

using namespace ZetrakSDK_Datatypes;

#define LINE_KIND(keyword, reader)                                                                 \
    {                                                                                              \
        keyword, sizeof(keyword) - 1, &ZetrakParser::reader                                        \
    }

// The blank behind each keyword keeps "6d " from taking the longer ones.
const ZetrakParser::LineKind ZetrakParser::line_kinds[] = {
    LINE_KIND("fr ", readFrameCounter),
    LINE_KIND("ts ", readTimeStamp),
    LINE_KIND("6dcal ", readCalibratedBodies),
    LINE_KIND("6d ", readBodies),
    LINE_KIND("6df ", readWandSticksFixed),
    LINE_KIND("6df2 ", readWandSticks),
    LINE_KIND("6dmt ", readMeaToolsFixed),
    LINE_KIND("6dmt2 ", readMeaTools),
    LINE_KIND("6dmtr ", readMeaRefs),
    LINE_KIND("glcal ", readCalibratedHands),
    LINE_KIND("gl ", readHands),
    LINE_KIND("6dj ", readHumans),
    LINE_KIND("6di ", readInertials),
    LINE_KIND("3d ", readMarkers),
};

#undef LINE_KIND

namespace
{

template <class Record>
Record* record_at(std::vector<Record>& records, int number, int index)
{
    if (index < 0 || index >= number)
        return nullptr;
    return &records.at(static_cast<std::size_t>(index));
}

// `count` calibrated objects exist; those that no line mentioned are untracked. A count below 0
// comes from lines that contradict each other; it is kept, and there are no records then.
template <class Record>
void complete_records(std::vector<Record>& records, int* number, int count)
{
    if (count > 0 && count > *number)
        line_groups::grow_untracked(records, number, count);
    *number = count;
}

// A count out of range leaves `*stored` alone; no count at all stores 0.
char* read_calibrated_count(char* cursor, int* stored)
{
    int count;
    cursor = ZetrakSDK_Parse::string_get_i(cursor, &count);
    if (!line_groups::is_in_range(count))
        return nullptr;
    *stored = count;
    return cursor;
}

} // namespace

ZetrakParser::~ZetrakParser() {}

void ZetrakParser::startFrame()
{
    frame_counter = 0;
    time_stamp = -1.0;
    cal_body_count = -1;
    cal_hand_count = -1;
    line_wandstick_count = 0;
    line_meatool_count = 0;
}

void ZetrakParser::endFrame()
{
    try {
        if (cal_body_count >= 0)
            complete_records(body, &num_body,
                             cal_body_count - line_wandstick_count - line_meatool_count);
        if (cal_hand_count >= 0)
            complete_records(hand, &num_hand, cal_hand_count);
    } catch (const std::bad_alloc&) {
        // The records stay as they are, as after a line that found no memory.
    }
}

bool ZetrakParser::parseLine(char** line)
{
    if (!line || !*line)
        return false;
    for (const LineKind& kind : line_kinds) {
        if (std::strncmp(*line, kind.keyword, kind.length) != 0)
            continue;
        try {
            *line = (this->*kind.reader)(*line + kind.length);
        } catch (const std::bad_alloc&) {
            *line = nullptr;
        }
        return *line != nullptr;
    }
    return true;
}

char* ZetrakParser::readFrameCounter(char* cursor)
{
    return ZetrakSDK_Parse::string_get_ui(cursor, &frame_counter);
}

char* ZetrakParser::readTimeStamp(char* cursor)
{
    cursor = ZetrakSDK_Parse::string_get_d(cursor, &time_stamp);
    if (!cursor)
        time_stamp = -1.0;
    return cursor;
}

char* ZetrakParser::readCalibratedBodies(char* cursor)
{
    return read_calibrated_count(cursor, &cal_body_count);
}

char* ZetrakParser::readCalibratedHands(char* cursor)
{
    return read_calibrated_count(cursor, &cal_hand_count);
}

Zetrak_Body_Type_d* ZetrakParser::getBody(int index) { return record_at(body, num_body, index); }

Zetrak_WandStick_Type_d* ZetrakParser::getWandStick(int index)
{
    return record_at(wandstick, num_wandstick, index);
}

Zetrak_MeaTool_Type_d* ZetrakParser::getMeaTool(int index)
{
    return record_at(meatool, num_meatool, index);
}

Zetrak_MeaRef_Type_d* ZetrakParser::getMeaRef(int index)
{
    return record_at(mearef, num_mearef, index);
}

Zetrak_Hand_Type_d* ZetrakParser::getHand(int index) { return record_at(hand, num_hand, index); }

Zetrak_Human_Type_d* ZetrakParser::getHuman(int index)
{
    return record_at(human, num_human, index);
}

Zetrak_Inertial_Type_d* ZetrakParser::getInertial(int index)
{
    return record_at(inertial, num_inertial, index);
}

Zetrak_Marker_Type_d* ZetrakParser::getMarker(int index)
{
    return record_at(marker, num_marker, index);
}
