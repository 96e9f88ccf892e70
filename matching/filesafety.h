// Which files may be loaded and saved, and saving without losing what was there before.
#ifndef MATCHING_FILESAFETY_H
#define MATCHING_FILESAFETY_H

#include <QByteArray>
#include <QString>

enum FileKind
{
    file_missing, ///< or not to be looked at
    file_regular,
    file_special ///< a folder, a pipe, a device; opening one could wait without end
};

/// What stands at this path, directly or behind links.
FileKind kind_of_file(const QByteArray& path);

/// Makes `content` the content of the file at `path`, which need not exist. Returns an empty text,
/// or the reason for which it failed, in the user's language where the system knows it; the file
/// then holds what it held before, and a new one does not exist.
///
/// The content is written beside the file, and the result takes the file's name only when all of it
/// is on the disk. Links and permissions stay. Where a file with a new identity would not do - the
/// folder takes no new file, the file has further names, or it belongs to somebody else - its place
/// on the disk is first reserved and then overwritten.
QString save_file(const QString& path, const QByteArray& content);

#endif
