// The data lines: what each kind stores, what it refuses, and what a refused line leaves.
#include "tests/support/fatal_logger.h"
#include "tracking/zetrakparser.h"

#include <QtTest/QtTest>

#include <algorithm>

using namespace ZetrakSDK_Datatypes;

namespace
{

// Makes the counts and the storage visible.
class OpenParser : public ZetrakParser
{
public:
    using ZetrakParser::cal_body_count;
    using ZetrakParser::cal_hand_count;
    using ZetrakParser::line_meatool_count;
    using ZetrakParser::line_wandstick_count;
    using ZetrakParser::num_marker;

    std::size_t storage() const
    {
        return body.size() + wandstick.size() + meatool.size() + mearef.size() + hand.size()
               + human.size() + inertial.size() + marker.size();
    }

    // Kind, then id and quality (state of an inertial body, joints of a human model) of each
    // record.
    QString describe()
    {
        using P = ZetrakParser;
        return (list("body", num_body, &P::getBody) + list("stick", num_wandstick, &P::getWandStick)
                + list("tool", num_meatool, &P::getMeaTool) + list("ref", num_mearef, &P::getMeaRef)
                + list("hand", num_hand, &P::getHand) + list("human", num_human, &P::getHuman)
                + list("inertial", num_inertial, &P::getInertial)
                + list("marker", num_marker, &P::getMarker))
            .mid(1);
    }

private:
    template <class Record>
    static double second(const Record& record)
    {
        return record.quality;
    }
    static double second(const Zetrak_Human_Type_d& human) { return human.num_joint; }
    static double second(const Zetrak_Inertial_Type_d& inertial) { return inertial.state; }

    template <class Get>
    QString list(const char* kind, int number, Get get)
    {
        QString text = number > 0 ? QString(" ") + kind : QString();
        for (int i = 0; i < number; ++i) {
            const auto& record = *(this->*get)(i);
            text += QString(" %1/%2").arg(record.id).arg(second(record));
        }
        return text;
    }
};

// "@" stands for a position of 1 to 3 and a matrix of 4 to 12, "#" for a group of 1 to 6, "%" for
// one joint.
QByteArray expand(QByteArray line)
{
    const QByteArray matrix = "[4 5 6 7 8 9 10 11 12]";
    line.replace("%", "[9 0.5]#" + matrix).replace("@", "[1 2 3]" + matrix);
    return line.replace("#", "[1 2 3 4 5 6]");
}

bool parse(ZetrakParser& parser, const QByteArray& short_line)
{
    QByteArray line = expand(short_line);
    const QByteArray original(line.constData());
    char* cursor = line.data();
    const bool read = parser.parseLine(&cursor);
    if (line != original || read != (cursor != nullptr))
        qFatal("the line was changed, or cursor and result disagree: %s", line.constData());
    return read;
}

bool counts_up_from(int first, const double* values, int count)
{
    for (int i = 0; i < count; ++i)
        if (values[i] != first + i)
            return false;
    return true;
}

template <class Record>
bool has_pose(const Record* record)
{
    return record && counts_up_from(1, record->loc, 3) && counts_up_from(4, record->rot, 9);
}

QString buttons(const int* button)
{
    QString text;
    for (int i = 0; i < Zetrak_Max_Button; ++i)
        text += QString::number(button[i]);
    return text;
}

} // namespace

class TestZetrakParser : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { install_fatal_logger(); }

    void lines_leave_records()
    {
        // Lines separated by |, one y or n a line, what is left.
        const char* const rows[][3] = {
            {"6d 1 [0 1]@|hello 1|6d", "yyy", "body 0/1"},
            {"6d 1 [3 0.9]@", "y", "body 0/-1 1/-1 2/-1 3/0.9"},
            {"6d 2 [0 1]@[1 1]@|6d 0", "yy", "body 0/-1 1/-1"},
            {"6d 1 [0 1]@|6d [0 1]@", "yn", "body 0/-1"},
            {"6d 2 [0 1]@[1 1][1 2 3", "n", "body 0/1 1/1"},
            {"6d 2 [1 1]@", "n", "body 0/-1 1/1"},
            {"6df 2 [1 1 0]@[0 1 0]@", "n", "stick 0/0 0/0"}, // ids count from 0
            {"6df 2 [0 1 0]@[1 1 0]@|6df 1 [0 2 0]@", "yy", "stick 0/2"},
            {"6df2 2 1 [0 1 0 0]@[]", "y", "stick 0/1 0/0"},
            {"6df2 1 2 [0 1 0 0]@[][1 1 0 0]@[]", "n", "stick 0/0"},
            {"6df2 1 1 [0 0.5 9 0]@[0]", "n", "stick 0/0.5"},
            {"6df2 1 1 [0 1 0 9]@[1 2 3 4 5 6 7 8 9]", "n", "stick 0/1"},
            {"6dmt2 3 1 [0 1 0 0]@[]#", "y", "tool 0/1"}, // the second number counts
            {"6dmt2 1 [0 1 0 0]@[]#", "n", ""},
            {"6dmt2 1 1 [0 1 -1 0]@[]#", "n", "tool 0/0"},
            {"6dmt 2 [0 1 0]@[0 1 0]@", "n", "tool 0/1 0/0"},
            {"6dmtr 3 1 [2 1]@", "y", "ref 0/-1 1/-1 2/1"},
            {"6dmtr 1 1 [0 1]@|6dmtr 1", "yn", "ref 0/-1"},
            {"6dmtr 1 1 [1 1]@", "n", "ref 0/-1"},
            {"gl 1 [1 1 0 0]@", "y", "hand 0/-1 1/1"},
            {"gl 1 [0 1 1 0]@|gl 0", "yy", "hand 0/-1"},
            {"gl 1 [0 0.5 1 6]@@#@#@#@#@#@#", "n", "hand 0/0.5"},
            {"6dj 2 1 [1 1]%", "y", "human 0/0 1/1"},
            {"6dj 1 1 [0 1]%|6dj 1 0", "yy", "human 0/0"},
            {"6dj 1 1 [1 0]", "n", "human 0/0"},
            {"6dj 1 1 [0 21]%%%%%%%%%%%%%%%%%%%%%", "n", "human 0/0"},
            {"6di 2 [0 5 0]@[3 6 0]@", "y", "inertial 0/5 3/0 0/0 3/6"},
            {"6di 1 [1 5 0]@|6di 0", "yy", "inertial 0/0 1/0"},
            {"6di 3 [0 1 0]@[0 1 0]@[1 7 0]@", "y", "inertial 0/1 1/7"},
            {"3d 2 [99999 1]# [-3 0.5]#", "y", "marker 99999/1 -3/0.5"},
            {"3d 1 [1 1]#|3d x", "yn", ""},
        };
        for (const auto& row : rows) {
            OpenParser parser;
            QByteArray read;
            for (const QByteArray& line : QByteArray(row[0]).split('|'))
                read += parse(parser, line) ? 'y' : 'n';
            QVERIFY2(read == row[1] && parser.describe() == row[2], row[0]);
        }
    }

    void hostile_lines_allocate_nothing()
    {
        for (const QByteArray line : // "?" stands for the hostile number
             {"6d ? [0 1]@", "6d 1 [? 1]@", "6df ?", "6df2 ? 0", "6dmt ?", "6dmt2 0 ?",
              "6dmt2 ? 1 [0 1 0 0]@[]#", "6dmtr ? 0", "gl ? [0 1 0 0]@", "gl 1 [? 1 0 0]@",
              "6dj ? 0", "6di ? [0 1 1]@", "6di 1 [? 1 1]@", "3d ?"})
            for (const char* number : {"4097", "2147483647", "-1", "-2147483648"}) {
                const bool below_none_is_none = line.startsWith("6d ?") || line.startsWith("gl ?");
                OpenParser parser;
                const bool read = parse(parser, QByteArray(line).replace("?", number));
                QVERIFY2(read == (below_none_is_none && *number == '-'), line);
                QVERIFY2(parser.storage() == 0, line);
            }
        ZetrakParser parser; // the highest id does make room
        QVERIFY(parse(parser, "6d 1 [4096 1]@") && parse(parser, "6dmtr 4096 0"));
        QVERIFY(parser.getNumBody() == 4097 && parser.getBody(4095)->id == 4095);
        QCOMPARE(parser.getNumMeaRef(), 4096);
    }

    void the_cursor_ends_behind_the_line()
    {
        ZetrakParser parser;
        for (QByteArray line : {expand("6d 1 [0 1]@ rest"), QByteArray("6dx 1 rest")}) {
            char* cursor = line.data();
            QVERIFY(parser.parseLine(&cursor));
            QCOMPARE(cursor, line.startsWith("6dx") ? line.data() : strstr(line.data(), " rest"));
        }
        char* none = nullptr;
        QVERIFY(!parser.parseLine(&none) && !parser.parseLine(nullptr));
    }

    void frame_time_and_calibrated_counts()
    {
        OpenParser parser;
        QCOMPARE(parser.getTimeStamp(), -1.0);
        for (const char* line : {"fr 4294967295", "ts 1234.5678", "6dcal 3", "glcal 2"})
            QVERIFY2(parse(parser, line), line);
        QVERIFY(!parse(parser, "6dcal 4097") && !parse(parser, "glcal -1"));
        QVERIFY(parser.getFrameCounter() == 4294967295u && parser.getTimeStamp() == 1234.5678);
        QVERIFY(parser.cal_body_count == 3 && parser.cal_hand_count == 2);
        for (const char* line : {"fr x", "ts ", "6dcal x", "glcal x"})
            QVERIFY2(!parse(parser, line), line);
        QVERIFY(parser.getFrameCounter() == 0 && parser.getTimeStamp() == -1.0);
        QVERIFY(parser.cal_body_count == 0 && parser.cal_hand_count == 0);
    }

    void every_kind_stores_its_pose()
    {
        ZetrakParser parser;
        for (const char* line :
             {"6d 1 [0 1]@", "6df 1 [0 1 0]@", "6dmt 1 [0 1 0]@", "6dmtr 1 1 [0 1]@",
              "gl 1 [0 1 4 1]@@#", "6dj 1 1 [0 1]%", "6di 1 [0 1 0.25]@", "3d 1 [7 1][1 2 3]"})
            QVERIFY2(parse(parser, line), line);
        QVERIFY(has_pose(parser.getBody(0)) && has_pose(parser.getWandStick(0)));
        QVERIFY(has_pose(parser.getMeaTool(0)) && has_pose(parser.getMeaRef(0)));
        const Zetrak_Hand_Type_d* hand = parser.getHand(0);
        QVERIFY(has_pose(hand) && hand->side == 4 && has_pose(&hand->finger[0]));
        QVERIFY(has_pose(parser.getInertial(0)) && parser.getInertial(0)->error == 0.25);
        QVERIFY(counts_up_from(1, parser.getMarker(0)->loc, 3));
        QVERIFY(parse(parser, "6df2 1 1 [0 1 0 0][3 2 1][9 8 7 6 5 4 3 2 1][]"));
        QVERIFY(!has_pose(parser.getWandStick(0)));
        QVERIFY(parse(parser, "6df2 1 1 [0 1 0 0]@[]") && has_pose(parser.getWandStick(0)));
    }

    void fixed_buttons_act_as_joystick_too()
    {
        // Line, buttons, both joystick values.
        const char* const rows[][3] = {{"6df 1 [0 1 33]@", "1000010000000000", "-1 0"},
                                       {"6df 1 [0 1 160]@", "0000010100000000", "-1 0"},
                                       {"6df 1 [0 1 0x40]@", "0000001000000000", "0 1"},
                                       {"6df 1 [0 1 0x80]@", "0000000100000000", "1 0"},
                                       {"6df 1 [0 1 -1]@", "1111111100000000", "-1 -1"}};
        for (const auto& row : rows) {
            ZetrakParser parser;
            QVERIFY(parse(parser, row[0]));
            const Zetrak_WandStick_Type_d& stick = *parser.getWandStick(0);
            QCOMPARE(buttons(stick.button), QString(row[1]));
            QVERIFY2(stick.num_button == 8 && stick.num_joystick == 2, row[0]);
            QCOMPARE(QString("%1 %2").arg(stick.joystick[0]).arg(stick.joystick[1]),
                     QString(row[2]));
        }
    }

    void controls_are_stored()
    {
        OpenParser parser;
        QVERIFY(parse(parser, "6df2 1 1 [0 1 8 8]@[0xA5 1 2 3 4 5 6 7 8]"));
        const Zetrak_WandStick_Type_d& stick = *parser.getWandStick(0);
        QCOMPARE(buttons(stick.button), QString("1010010100000000"));
        QVERIFY(stick.num_joystick == 8 && counts_up_from(1, stick.joystick, 8));
        QVERIFY(parse(parser, "6df2 1 1 [0 1 2 1]@[2 -0.5]") && stick.joystick[0] == -0.5);
        QCOMPARE(buttons(stick.button), QString("0110010100000000")); // the higher ones stay
        QVERIFY(parse(parser, "6df2 1 1 [0 1 0 1]@[0.25]") && stick.joystick[0] == 0.25);

        QVERIFY(parse(parser, "6dmt 1 [0 1 0xF]@") && parser.line_meatool_count == 1);
        QVERIFY(parse(parser, "6dmt2 7 1 [0 1 20 0.75]@[0x18001]#")
                && parser.line_meatool_count == 0);
        const Zetrak_MeaTool_Type_d& tool = *parser.getMeaTool(0);
        QVERIFY(has_pose(&tool) && tool.num_button == 16);
        QCOMPARE(buttons(tool.button), QString("1000000000000001"));
        QVERIFY(tool.extra_value == 0.75 && counts_up_from(1, tool.extra_values, 6));
        QVERIFY(parse(parser, "6dmt2 1 1 [0 1 2 0]@[3]#"));
        QCOMPARE(buttons(tool.button), QString("1100000000000000"));
        QVERIFY(parse(parser, "6dmt 1 [0 1 0x1A]@") && tool.num_button == 4);
        QCOMPARE(buttons(tool.button), QString("0101000000000000"));
        QVERIFY(tool.extra_value == 0.0
                && std::count(tool.extra_values, tool.extra_values + 6, 0) == 6);
    }

    void fingers_and_joints_are_stored()
    {
        ZetrakParser parser;
        QVERIFY(parse(parser, "gl 1 [0 1 0 2]@@#@[10 11 12 13 14 15]"));
        QCOMPARE(parser.getHand(0)->num_finger, 2);
        const double interleaved[] = {10, 11, 13, 15, 12, 14};
        QVERIFY(std::equal(interleaved, interleaved + 6, parser.getHand(0)->finger[1].values));

        QVERIFY(parse(parser, "6dj 1 1 [0 20]%%%%%%%%%%%%%%%%%%%[3 0.25][7 8 9 10 11 12]"
                              "[4 5 6 7 8 9 10 11 12]"));
        const auto& joint = parser.getHuman(0)->joint;
        QVERIFY(joint[0].id == 9 && joint[19].id == 3 && joint[19].quality == 0.25);
        QVERIFY(counts_up_from(7, joint[19].loc, 3) && counts_up_from(10, joint[19].angles, 3));
        QVERIFY(counts_up_from(4, joint[19].rot, 9));
    }

    void the_end_of_a_frame_adds_untracked_records()
    {
        OpenParser parser;
        parser.startFrame();
        for (const char* line : {"6dcal 5", "6d 1 [0 1]@", "6df 1 [0 1 0]@", "6dmt 1 [0 1 0]@",
                                 "glcal 2", "gl 1 [0 1 0 0]@"})
            QVERIFY2(parse(parser, line), line);
        QCOMPARE(parser.describe(), QString("body 0/1 stick 0/1 tool 0/1 hand 0/1"));
        parser.endFrame();
        const QString padded = "body 0/1 1/-1 2/-1 stick 0/1 tool 0/1 hand 0/1 1/-1";
        QCOMPARE(parser.describe(), padded);

        parser.startFrame();
        parser.endFrame(); // tells no calibrated count, so nothing changes
        QCOMPARE(parser.describe(), padded);

        QVERIFY(parse(parser, "6dcal 1") && parse(parser, "6df 2 [0 1 0]@[1 1 0]@"));
        parser.endFrame();
        QVERIFY(parser.getNumBody() == -1 && !parser.getBody(0) && !parser.getBody(-1));
        QVERIFY(parse(parser, "6dcal 2"));
        parser.endFrame(); // rises from below 0 to 0
        QCOMPARE(parser.getNumBody(), 0);
        QVERIFY(parse(parser, "6dcal 0"));
        parser.endFrame();
        QVERIFY(parse(parser, "6df 1 [0 1 0]@"));
        parser.endFrame(); // from -2 to -1
        QVERIFY(parser.getNumBody() == -1 && !parser.getBody(0));
        QVERIFY(parse(parser, "6d 1 [1 1]@"));
        QVERIFY(parser.describe().startsWith("body 0/-1 1/1 stick"));
    }

    void records_are_null_outside_their_number()
    {
        OpenParser parser;
        for (const char* line : {"6d 1 [1 1]@", "3d 2 [1 1]#[2 1]#", "3d 1 [1 1]#"})
            QVERIFY2(parse(parser, line), line);
        QVERIFY(parser.getBody(1) && !parser.getBody(2) && !parser.getBody(-1));
        QVERIFY(parser.getMarker(0) && !parser.getMarker(1));
        parser.num_marker = 3; // more than is stored
        QVERIFY_EXCEPTION_THROWN(parser.getMarker(2), std::out_of_range);
    }
};

QTEST_APPLESS_MAIN(TestZetrakParser)
#include "test_zetrakparser.moc"
