// Reads a reference-point file as the dialog does, and tells what the dialog passes over.
#ifndef TOOLS_POINTFILE_H
#define TOOLS_POINTFILE_H

#include "matching/referencepointfile.h"
#include "tools/points.h"

#include <QString>

#include <istream>

/// A remark on one line of a file; line 0 is the file as a whole.
struct LineNote
{
    int line;
    QString text;
    bool is_serious; ///< the line was probably meant to count
};

/// Digits that a file has and the dialog does not keep.
struct LostDigits
{
    double most = 0.0; ///< mm
    int point = 0;     ///< number from 1 of the point that loses most, 0 if none loses any
    int axis = 0;
};

struct PointFile
{
    QString name;
    QString error; ///< with file and line; empty if points were read
    ReferenceFileForm form = reference_form_unknown;
    Points points;
    std::vector<LineNote> notes; ///< in the order of the lines
    LostDigits to_single;        ///< by reading through single precision
    LostDigits to_two_decimals;  ///< by the dialog's table, once a point is edited, or saved

    bool is_serious() const;
};

/// Reads the file; its name goes into the messages. A file of more than 64 MB is refused.
PointFile read_point_file(std::istream& stream, const QString& name);

/// "numbered", "parenthesized", "keyed" or "unknown".
QString form_name(ReferenceFileForm form);

/// "NAME:LINE: text", or "NAME: text" for line 0.
QString located(const QString& name, const LineNote& note);

#endif
