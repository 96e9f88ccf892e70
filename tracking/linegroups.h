// Helpers that the readers of the data lines share: counts, groups and the growth of records.
#ifndef TRACKING_LINEGROUPS_H
#define TRACKING_LINEGROUPS_H

#include "tracking/zetrakparse.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace line_groups
{

/// Highest count or id that a line may ask storage for; no real set-up comes near it. A build may
/// lower it: clearing megabytes of records in every run would keep a fuzzer from its work.
#ifdef TRACKING_MAX_NUMBER
const int max_number = TRACKING_MAX_NUMBER;
#else
const int max_number = 4096;
#endif

const char* const one_real = "d";
const char* const vector_format = "ddd";
const char* const matrix_format = "ddddddddd";
const char* const six_reals = "dddddd";

inline bool is_in_range(int number) { return number >= 0 && number <= max_number; }

/// Reads a count; null, with `*count` as it was, if there is none or it is out of range.
inline char* read_count(char* cursor, int* count)
{
    int value;
    cursor = ZetrakSDK_Parse::string_get_i(cursor, &value);
    if (!cursor || !is_in_range(value))
        return nullptr;
    *count = value;
    return cursor;
}

/// Groups Loc and Rot.
inline char* read_pose(char* cursor, double* loc, double* rot)
{
    using ZetrakSDK_Parse::string_get_block;
    cursor = string_get_block(cursor, vector_format, nullptr, nullptr, loc);
    return cursor ? string_get_block(cursor, matrix_format, nullptr, nullptr, rot) : nullptr;
}

/// Number and storage of a kind become `count`, with new records zeroed, if the number differs.
template <class Record>
void resize_records(std::vector<Record>& records, int* number, int count)
{
    if (count == *number)
        return;
    records.resize(static_cast<std::size_t>(count));
    *number = count;
}

template <class Record>
void mark_untracked(Record& record, int id)
{
    record = Record();
    record.id = id;
    record.quality = -1.0;
}

/// Makes room for `count` records and marks those from the old number on.
template <class Record>
void grow_untracked(std::vector<Record>& records, int* number, int count)
{
    if (static_cast<std::size_t>(count) > records.size())
        records.resize(static_cast<std::size_t>(count));
    for (int i = std::max(*number, 0); i < count; ++i)
        mark_untracked(records[static_cast<std::size_t>(i)], i);
    *number = count;
}

template <class Record>
void mark_all_untracked(std::vector<Record>& records)
{
    for (std::size_t i = 0; i < records.size(); ++i)
        mark_untracked(records[i], static_cast<int>(i));
}

/// The lowest `count` bits of `word`, lowest first, as 0 or 1.
inline void unpack_bits(int word, int* bits, int count)
{
    for (int i = 0; i < count; ++i)
        bits[i] = (static_cast<unsigned>(word) >> i) & 1u;
}

} // namespace line_groups

#endif
