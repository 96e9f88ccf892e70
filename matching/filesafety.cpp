#include "matching/filesafety.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace
{

const mode_t new_file_mode = 0666; // less the user's mask
const mode_t permission_bits = 07777;

/// A file handle that is closed with its scope.
class Handle
{
public:
    Handle(const QByteArray& path, int flags)
        : m_number(open(path.constData(), flags | O_CLOEXEC, new_file_mode))
    {
    }
    ~Handle() { close_now(); }

    bool is_open() const { return m_number >= 0; }
    int number() const { return m_number; }

    /// Some file systems report a failed write only here.
    bool close_now()
    {
        const int number = m_number;
        m_number = -1;
        return number < 0 || close(number) == 0;
    }

private:
    Handle(const Handle&);
    Handle& operator=(const Handle&);

    int m_number;
};

QString reason() { return QString::fromLocal8Bit(std::strerror(errno)); }

bool write_all(int handle, const QByteArray& content)
{
    for (int done = 0; done < content.size();) {
        const ssize_t written = write(handle, content.constData() + done, content.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        done += static_cast<int>(written);
    }
    return true;
}

/// Removes a file that did not get its content; errno stays.
void discard(const QByteArray& path)
{
    const int error = errno;
    unlink(path.constData());
    errno = error;
}

bool finish(Handle& file) { return fsync(file.number()) == 0 && file.close_now(); }

/// Lists of permitted users, beside the plain permissions, that a new file would not have.
bool has_access_list(const QByteArray& path)
{
#ifdef __linux__
    return getxattr(path.constData(), "system.posix_acl_access", nullptr, 0) > 0;
#else
    (void)path;
    return false;
#endif
}

/// A free name in the same folder.
QByteArray name_beside(const QByteArray& path)
{
    const QByteArray folder = path.left(path.lastIndexOf('/') + 1);
    return folder + ".points-" + QByteArray::number(getpid()) + ".part";
}

enum Outcome
{
    saved,
    failed,
    not_possible_here
};

Outcome save_beside(const QByteArray& path, const QByteArray& content, const struct stat& old)
{
    const QByteArray beside = name_beside(path);
    unlink(beside.constData()); // of a process that died with the same number
    Handle file(beside, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.is_open())
        return not_possible_here;
    if (fchown(file.number(), static_cast<uid_t>(-1), old.st_gid) != 0
        || fchmod(file.number(), old.st_mode & permission_bits) != 0) {
        discard(beside);
        return not_possible_here;
    }
    if (!write_all(file.number(), content) || !finish(file)) {
        discard(beside);
        return failed;
    }
    if (rename(beside.constData(), path.constData()) == 0)
        return saved;
    discard(beside);
    return not_possible_here;
}

bool overwrite(int handle, const QByteArray& content)
{
    return lseek(handle, 0, SEEK_SET) == 0 && write_all(handle, content)
           && ftruncate(handle, content.size()) == 0;
}

/// First takes all the room that is needed, so that a full disk leaves the file as it was.
bool save_in_place(const QByteArray& path, const QByteArray& content, const struct stat& old)
{
    QFile reader(QFile::decodeName(path));
    const bool is_readable = reader.open(QIODevice::ReadOnly);
    const QByteArray before = reader.readAll();
    Handle file(path, O_WRONLY);
    if (!file.is_open())
        return false;
    int error = posix_fallocate(file.number(), 0, content.size());
    if (error != 0) {
        if (ftruncate(file.number(), old.st_size) == 0)
            errno = error;
        return false;
    }
    if (overwrite(file.number(), content) && finish(file))
        return true;
    error = errno;
    if (is_readable)
        overwrite(file.number(), before);
    errno = error;
    return false;
}

bool create(const QByteArray& path, const QByteArray& content)
{
    Handle file(path, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.is_open())
        return false;
    if (write_all(file.number(), content) && finish(file))
        return true;
    discard(path);
    return false;
}

bool replace(const QByteArray& path, const QByteArray& content, const struct stat& old)
{
    if (access(path.constData(), W_OK) != 0)
        return false;
    const bool may_become_new =
        old.st_nlink == 1 && old.st_uid == geteuid() && !has_access_list(path);
    const Outcome outcome = may_become_new ? save_beside(path, content, old) : not_possible_here;
    return outcome == not_possible_here ? save_in_place(path, content, old) : outcome == saved;
}

/// The path of the file itself, behind all links; a link to nothing gives where it points to.
QByteArray behind_links(const QString& path)
{
    QString target = path;
    const int most_links = 40; // as the system itself allows
    for (int i = 0; i < most_links && QFileInfo(target).isSymLink(); ++i)
        target = QFileInfo(target).symLinkTarget();
    return QFile::encodeName(QFileInfo(target).absoluteFilePath());
}

} // namespace

FileKind kind_of_file(const QByteArray& path)
{
    struct stat status;
    if (stat(path.constData(), &status) != 0)
        return file_missing;
    return S_ISREG(status.st_mode) ? file_regular : file_special;
}

QString save_file(const QString& path, const QByteArray& content)
{
    const QByteArray file = behind_links(path);
    if (kind_of_file(file) == file_special)
        return QCoreApplication::translate("AbcMatchingDialog", "It is not a regular file.");
    struct stat old;
    const bool exists = stat(file.constData(), &old) == 0;
    const bool done = exists ? replace(file, content, old) : create(file, content);
    return done ? QString() : reason();
}
