// The lines of bodies, hands, human models, inertial bodies and markers.
#include "tracking/zetrakparser.h"

#include "tracking/linegroups.h"

using namespace ZetrakSDK_Datatypes;
using namespace ZetrakSDK_Parse;
using namespace line_groups;

namespace
{

char* read_body(char* cursor, std::vector<Zetrak_Body_Type_d>& bodies, int* number)
{
    int id;
    double quality;
    cursor = string_get_block(cursor, "id", &id, nullptr, &quality);
    if (!cursor || !is_in_range(id))
        return nullptr;
    if (id >= *number)
        grow_untracked(bodies, number, id + 1);
    Zetrak_Body_Type_d& body = bodies[static_cast<std::size_t>(id)];
    body.id = id;
    body.quality = quality;
    return read_pose(cursor, body.loc, body.rot);
}

char* read_finger(char* cursor, Zetrak_Hand_Type_d::Finger& finger)
{
    // The line interleaves the values: its numbers 0 to 5 belong to these places.
    static const int places[6] = {0, 1, 4, 2, 5, 3};
    double numbers[6];
    cursor = read_pose(cursor, finger.loc, finger.rot);
    if (cursor)
        cursor = string_get_block(cursor, six_reals, nullptr, nullptr, numbers);
    if (!cursor)
        return nullptr;
    for (int i = 0; i < 6; ++i)
        finger.values[places[i]] = numbers[i];
    return cursor;
}

char* read_fingers(char* cursor, Zetrak_Hand_Type_d& hand, int count)
{
    if (count < 0 || count > Zetrak_Max_Finger)
        return nullptr;
    hand.num_finger = count;
    cursor = read_pose(cursor, hand.loc, hand.rot);
    for (int i = 0; cursor && i < count; ++i)
        cursor = read_finger(cursor, hand.finger[i]);
    return cursor;
}

char* read_hand(char* cursor, std::vector<Zetrak_Hand_Type_d>& hands, int* number)
{
    int integers[3];
    double quality;
    cursor = string_get_block(cursor, "idii", integers, nullptr, &quality);
    if (!cursor || !is_in_range(integers[0]))
        return nullptr;
    const int id = integers[0];
    if (id >= *number)
        grow_untracked(hands, number, id + 1);
    Zetrak_Hand_Type_d& hand = hands[static_cast<std::size_t>(id)];
    hand.id = id;
    hand.side = integers[1];
    hand.quality = quality;
    return read_fingers(cursor, hand, integers[2]);
}

char* read_joint(char* cursor, Zetrak_Human_Type_d::Joint& joint)
{
    double numbers[6];
    cursor = string_get_block(cursor, "id", &joint.id, nullptr, &joint.quality);
    if (cursor)
        cursor = string_get_block(cursor, six_reals, nullptr, nullptr, numbers);
    if (!cursor)
        return nullptr;
    std::copy(numbers, numbers + 3, joint.loc);
    std::copy(numbers + 3, numbers + 6, joint.angles);
    return string_get_block(cursor, matrix_format, nullptr, nullptr, joint.rot);
}

char* read_human(char* cursor, std::vector<Zetrak_Human_Type_d>& humans)
{
    int integers[2];
    cursor = string_get_block(cursor, "ii", integers, nullptr, nullptr);
    if (!cursor || integers[0] < 0 || static_cast<std::size_t>(integers[0]) >= humans.size())
        return nullptr;
    if (integers[1] < 0 || integers[1] > Zetrak_Max_Joint)
        return nullptr;
    Zetrak_Human_Type_d& human = humans[static_cast<std::size_t>(integers[0])];
    human.id = integers[0];
    human.num_joint = integers[1];
    for (int i = 0; cursor && i < human.num_joint; ++i)
        cursor = read_joint(cursor, human.joint[i]);
    return cursor;
}

void reset_inertial(Zetrak_Inertial_Type_d& inertial, int id)
{
    inertial.id = id;
    inertial.state = 0;
    inertial.error = 0.0;
}

// Growth differs from that of the bodies: the new records stay all zero, and it is the record at
// the running number of the group, if there is one, that is given the id and cleared.
void grow_inertials(std::vector<Zetrak_Inertial_Type_d>& inertials, int* number, int group, int id)
{
    resize_records(inertials, number, id + 1);
    if (group <= id)
        reset_inertial(inertials[static_cast<std::size_t>(group)], id);
}

char* read_inertial(char* cursor, std::vector<Zetrak_Inertial_Type_d>& inertials, int* number,
                    int group)
{
    int integers[2];
    double error;
    cursor = string_get_block(cursor, "iid", integers, nullptr, &error);
    if (!cursor || !is_in_range(integers[0]))
        return nullptr;
    const int id = integers[0];
    if (id >= *number)
        grow_inertials(inertials, number, group, id);
    Zetrak_Inertial_Type_d& inertial = inertials[static_cast<std::size_t>(id)];
    inertial.id = id;
    inertial.state = integers[1];
    inertial.error = error;
    return read_pose(cursor, inertial.loc, inertial.rot);
}

char* read_marker(char* cursor, Zetrak_Marker_Type_d& marker)
{
    cursor = string_get_block(cursor, "id", &marker.id, nullptr, &marker.quality);
    return cursor ? string_get_block(cursor, vector_format, nullptr, nullptr, marker.loc) : nullptr;
}

} // namespace

// A count below 1 is a line without bodies, even a negative one.
char* ZetrakParser::readBodies(char* cursor)
{
    mark_all_untracked(body);
    int count;
    cursor = string_get_i(cursor, &count);
    if (count > max_number)
        return nullptr;
    for (int i = 0; cursor && i < count; ++i)
        cursor = read_body(cursor, body, &num_body);
    return cursor;
}

// A count below 1 is a line without hands, even a negative one.
char* ZetrakParser::readHands(char* cursor)
{
    mark_all_untracked(hand);
    int count;
    cursor = string_get_i(cursor, &count);
    if (count > max_number)
        return nullptr;
    for (int i = 0; cursor && i < count; ++i)
        cursor = read_hand(cursor, hand, &num_hand);
    return cursor;
}

// The first number says how many models exist, the second how many the line holds.
char* ZetrakParser::readHumans(char* cursor)
{
    int count;
    cursor = read_count(cursor, &count);
    if (!cursor)
        return nullptr;
    resize_records(human, &num_human, count);
    for (int i = 0; i < num_human; ++i) {
        human[static_cast<std::size_t>(i)] = Zetrak_Human_Type_d();
        human[static_cast<std::size_t>(i)].id = i;
    }
    cursor = read_count(cursor, &count);
    for (int i = 0; cursor && i < count; ++i)
        cursor = read_human(cursor, human);
    return cursor;
}

char* ZetrakParser::readInertials(char* cursor)
{
    for (std::size_t i = 0; i < inertial.size(); ++i) {
        inertial[i] = Zetrak_Inertial_Type_d();
        inertial[i].id = static_cast<int>(i);
    }
    int count;
    cursor = read_count(cursor, &count);
    for (int i = 0; cursor && i < count; ++i)
        cursor = read_inertial(cursor, inertial, &num_inertial, i);
    return cursor;
}

// Storage grows and never shrinks; markers stand in the order of the line, whatever their ids.
char* ZetrakParser::readMarkers(char* cursor)
{
    int count = 0;
    num_marker = 0;
    cursor = read_count(cursor, &count);
    if (static_cast<std::size_t>(count) > marker.size())
        marker.resize(static_cast<std::size_t>(count));
    num_marker = count;
    for (int i = 0; cursor && i < num_marker; ++i)
        cursor = read_marker(cursor, marker[static_cast<std::size_t>(i)]);
    return cursor;
}
