// Reference-point files, and the repair of the numbers that are saved to them.
#ifndef MATCHING_REFERENCEPOINTFILE_H
#define MATCHING_REFERENCEPOINTFILE_H

#include "src/bsVector.h"

#include <QString>

#include <istream>
#include <vector>

enum
{
    /// Most points that a file, and so the table, may hold; a fit takes far fewer.
    reference_file_max_points = 100000,
    /// A longer line, in bytes without its line feed, is no point.
    reference_file_max_line = 1023
};

/// What settled how a reference-point file was read.
enum ReferenceFileForm
{
    reference_form_unknown,
    reference_form_numbered,
    reference_form_parenthesized,
    reference_form_keyed
};

/// Where the points of a reference-point file came from.
struct ReferenceFileSource
{
    /// Numbers, from 1, of the lines with the point's x, y and z; 0 for one that is not told.
    struct Lines
    {
        int of_axis[3];
    };

    ReferenceFileForm form; ///< of the first point
    std::vector<Lines> points;
};

/// Reads a text file of points in mm, in the order of their lines. One of three formats:
/// "1 X Y Z" with any white space between, "(1) X Y Z", or three blocks of lines
/// "Documentation_mPos[3][C]:3:\xB6VALUE\xB6" with all x, then all y, then all z values.
///
/// A byte order mark is skipped. The first line that begins with "1", "(1)" or the key with C = 0
/// settles the format; lines before it, and those after it that do not match, are skipped. Point
/// numbers are not kept. A numbered line without a line feed at the end of the file is lost. Values
/// go through float, in the C locale; one that is not finite, or not below 2^31 mm in size, does
/// not match.
/// The x values of a block add points; its y and z values are counted from the first point of the
/// file, also in a later block. Those beyond the block's number of x values are ignored, and a
/// coordinate that is not told is -999.
///
/// False, with `points` as they were, if no format was recognized, on a read error, or for more
/// than `reference_file_max_points` points. A recognized file may hold no point.
/// `source`, if asked for, is written in any case; one entry for each point that was read.
bool read_reference_points(std::istream& stream, std::vector<bsVector>& points,
                           ReferenceFileSource* source = nullptr);

/// One line of the numbered format, with its line feed. `x`, `y`, `z` are texts in mm, repaired by
/// `repair_number`; `number` counts from 1.
QString reference_point_line(int number, QString x, QString y, QString z);

/// Brings a typed or pasted number to two decimals: blanks of any kind around it fall away, commas
/// are points, dashes and the minus sign U+2212 are "-", missing digits zeros, digits beyond two
/// and a second point with all behind it are cut off. Nothing is rounded. The result is ASCII that
/// every number reader takes. False if the integer part is no plain int or the fraction no digits;
/// such a part becomes "0".
bool repair_number(QString& text);

/// Trims white space from a file name and appends ".txt" unless it ends so, in lower case.
void add_txt_extension(QString& file_name);

#endif
