// Turns the controller's tracking data lines into records; each line overwrites its kind.
#ifndef TRACKING_ZETRAKPARSER_H
#define TRACKING_ZETRAKPARSER_H

#include "tracking/zetrakdatatypes.h"

#include <vector>

/// Not thread-safe: feed and read it from one thread at a time.
class ZetrakParser
{
public:
    ZetrakParser() = default;
    virtual ~ZetrakParser();

    /// Call before the lines of a frame: forgets frame counter, time stamp and the calibrated
    /// counts, not the objects.
    virtual void startFrame();

    /// Call after the lines of a frame: calibrated bodies and hands that no line mentioned become
    /// untracked records. The number of bodies is what "6dcal" told less the devices of the "6df"
    /// and "6dmt" lines, and negative if the lines contradict each other so. Never throws.
    virtual void endFrame();

    /// Reads the writable, zero-terminated line at `*line` and moves `*line` behind what was read.
    /// True if the line was read, or was ignored for its unknown keyword (nothing moves then).
    /// On failure false, with `*line` null; what was stored up to the failure stays. Besides
    /// malformed groups, these fail a line before anything is stored or allocated for them: counts
    /// and ids below 0 or above 4096 where they size or choose records, more buttons, joystick
    /// values, fingers or joints than a record holds, more groups than the line's defined count.
    /// Exceptions: bodies or hands in a number below 0 are none, and a tool's buttons beyond 16 are
    /// dropped.
    /// Null gives false. Never throws; running out of memory fails the line.
    virtual bool parseLine(char** line);

    /// Number of the frame; 0 after a failed "fr" line.
    unsigned int getFrameCounter() const { return frame_counter; }
    /// Time of the frame in s; -1.0 if there is none.
    double getTimeStamp() const { return time_stamp; }

    int getNumBody() const { return num_body; }
    int getNumWandStick() const { return num_wandstick; }
    int getNumMeaTool() const { return num_meatool; }
    int getNumMeaRef() const { return num_mearef; }
    int getNumHand() const { return num_hand; }
    int getNumHuman() const { return num_human; }
    int getNumInertial() const { return num_inertial; }
    int getNumMarker() const { return num_marker; }

    /// The record at an index, or null for an index outside 0 to the number less 1. Valid until the
    /// next line of the same kind.
    ZetrakSDK_Datatypes::Zetrak_Body_Type_d* getBody(int index);
    ZetrakSDK_Datatypes::Zetrak_WandStick_Type_d* getWandStick(int index);
    ZetrakSDK_Datatypes::Zetrak_MeaTool_Type_d* getMeaTool(int index);
    ZetrakSDK_Datatypes::Zetrak_MeaRef_Type_d* getMeaRef(int index);
    ZetrakSDK_Datatypes::Zetrak_Hand_Type_d* getHand(int index);
    ZetrakSDK_Datatypes::Zetrak_Human_Type_d* getHuman(int index);
    ZetrakSDK_Datatypes::Zetrak_Inertial_Type_d* getInertial(int index);
    ZetrakSDK_Datatypes::Zetrak_Marker_Type_d* getMarker(int index);

protected:
    unsigned int frame_counter = 0;
    double time_stamp = -1.0;

    // The vectors only hold storage: the number before each says how many records are valid, and
    // may be smaller.
    int num_body = 0;
    std::vector<ZetrakSDK_Datatypes::Zetrak_Body_Type_d> body;
    int num_wandstick = 0;
    std::vector<ZetrakSDK_Datatypes::Zetrak_WandStick_Type_d> wandstick;
    int num_meatool = 0;
    std::vector<ZetrakSDK_Datatypes::Zetrak_MeaTool_Type_d> meatool;
    int num_mearef = 0;
    std::vector<ZetrakSDK_Datatypes::Zetrak_MeaRef_Type_d> mearef;
    int num_hand = 0;
    std::vector<ZetrakSDK_Datatypes::Zetrak_Hand_Type_d> hand;
    int num_human = 0;
    std::vector<ZetrakSDK_Datatypes::Zetrak_Human_Type_d> human;
    int num_inertial = 0;
    std::vector<ZetrakSDK_Datatypes::Zetrak_Inertial_Type_d> inertial;
    int num_marker = 0;
    std::vector<ZetrakSDK_Datatypes::Zetrak_Marker_Type_d> marker;

    int cal_body_count = -1; ///< -1 while the frame has not told it
    int cal_hand_count = -1; ///< -1 while the frame has not told it
    int line_wandstick_count = 0;
    int line_meatool_count = 0;

private:
    // One reader a kind of line. Each takes the position behind the keyword and returns the one
    // behind what it read, or null on failure.
    typedef char* (ZetrakParser::*LineReader)(char* cursor);
    struct LineKind
    {
        const char* keyword;
        unsigned int length;
        LineReader reader;
    };
    static const LineKind line_kinds[];

    char* readFrameCounter(char* cursor);
    char* readTimeStamp(char* cursor);
    char* readCalibratedBodies(char* cursor);
    char* readCalibratedHands(char* cursor);
    char* readBodies(char* cursor);
    char* readWandSticksFixed(char* cursor);
    char* readWandSticks(char* cursor);
    char* readMeaToolsFixed(char* cursor);
    char* readMeaTools(char* cursor);
    char* readMeaRefs(char* cursor);
    char* readHands(char* cursor);
    char* readHumans(char* cursor);
    char* readInertials(char* cursor);
    char* readMarkers(char* cursor);
};

#endif
