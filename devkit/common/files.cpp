#include "common/files.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace devkit
{

namespace
{

bool writeAll(int descriptor, const std::string& content)
{
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t written = write(descriptor, content.data() + done, content.size() - done);
        if (written > 0)
            done += static_cast<std::size_t>(written);
        else if (errno != EINTR)
            return false;
    }
    return true;
}

// The rest of an open file.
FileRead readAll(int descriptor, std::string& content, std::size_t limit)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return FileRead::Failed;
    if (static_cast<std::uintmax_t>(status.st_size) > limit)
        return FileRead::TooLarge;
    content.clear();
    char buffer[4096];
    for (;;) {
        const ssize_t length = read(descriptor, buffer, sizeof buffer);
        if (length == 0)
            return FileRead::Done;
        // A file may grow, and one of the kernel's tells no size.
        if (length > 0 && static_cast<std::size_t>(length) > limit - content.size())
            return FileRead::TooLarge;
        if (length > 0)
            content.append(buffer, static_cast<std::size_t>(length));
        else if (errno != EINTR)
            return FileRead::Failed;
    }
}

FileRead readAt(int folder, const std::string& name, int flags, std::string& content, std::size_t limit)
{
    // To open a device may be to do something with it.
    struct stat status = {};
    if (fstatat(folder, name.c_str(), &status, (flags & O_NOFOLLOW) != 0 ? AT_SYMLINK_NOFOLLOW : 0) != 0)
        return errno == ENOENT ? FileRead::Missing : FileRead::Failed;
    if (!S_ISREG(status.st_mode))
        return FileRead::Failed;
    // Not waiting: a pipe that came into the file's place just now must not hang the caller.
    const Descriptor file(openat(folder, name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | flags));
    if (!file.isOpen())
        return errno == ENOENT ? FileRead::Missing : FileRead::Failed;
    return readAll(file.number(), content, limit);
}

// Opens a new file in the folder and sets `name` to its name, which no other writer uses; a process that had
// this one's id may have left such a file behind.
int openTemporary(int folder, const std::string& target, mode_t mode, std::string& name)
{
    static std::atomic<unsigned int> count{0};
    int descriptor = -1;
    do {
        name = '.' + target + '.' + std::to_string(getpid()) + '-' + std::to_string(++count) + ".tmp";
        descriptor = openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    } while (descriptor < 0 && errno == EEXIST);
    return descriptor;
}

bool writeLike(const struct stat* model, std::optional<mode_t> newMode, const Descriptor& file,
               const std::string& content)
{
    if (model != nullptr) {
        // The owner first: changing it takes mode bits away. Nobody's rights are lent to who runs the file.
        [[maybe_unused]] const int ignored = fchown(file.number(), model->st_uid, model->st_gid);
        newMode = model->st_mode & 0777;
    }
    if (newMode && fchmod(file.number(), *newMode) != 0)
        return false;
    return writeAll(file.number(), content) && fsync(file.number()) == 0;
}

// The target of a symbolic link that may be followed; nothing, and errno 0, where there is no link.
std::optional<std::string> followed(int folder, const std::string& name)
{
    const Descriptor link(openat(folder, name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    const bool isThere = link.isOpen() && fstat(link.number(), &status) == 0;
    if (!isThere || !S_ISLNK(status.st_mode)) {
        errno = isThere || errno == ENOENT ? 0 : errno;
        return std::nullopt;
    }
    if (status.st_uid != 0 && status.st_uid != geteuid()) {
        errno = EACCES;
        return std::nullopt;
    }
    char target[PATH_MAX];
    const ssize_t length = readlinkat(link.number(), "", target, sizeof target);
    return length < 0 ? std::nullopt : std::optional(std::string(target, static_cast<std::size_t>(length)));
}

} // namespace

Descriptor::~Descriptor()
{
    if (m_number >= 0)
        close(m_number);
}

Descriptor openFolder(const std::string& path, int from)
{
    return Descriptor(openat(from, path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

FileRead readFile(const std::string& path, std::string& content, std::size_t limit)
{
    return readAt(AT_FDCWD, path, 0, content, limit);
}

const char* reasonOf(FileRead read)
{
    return read == FileRead::TooLarge
               ? "the file is larger than 1 MiB, which no configuration needs: delete it"
               : "the file cannot be read";
}

FilePlace::FilePlace(const std::string& path, int from)
{
    constexpr int MOST_LINKS = 40;
    std::filesystem::path way = path;
    for (int links = 0; links <= MOST_LINKS; ++links) {
        const std::string parent = way.has_parent_path() ? way.parent_path().string() : ".";
        m_folder = openFolder(parent, links == 0 ? from : m_folder.number());
        m_error = errno;
        if (!m_folder.isOpen())
            return;
        m_name = way.filename().string();
        const std::optional<std::string> target = followed(m_folder.number(), m_name);
        m_error = errno;
        if (!target)
            return;
        way = *target;
    }
    m_error = ELOOP;
}

FileRead FilePlace::read(std::string& content) const
{
    return m_error != 0 ? FileRead::Failed : readAt(m_folder.number(), m_name, O_NOFOLLOW, content, MIB);
}

bool FilePlace::replace(const std::string& content, std::optional<mode_t> newMode) const
{
    if (m_error != 0) {
        errno = m_error;
        return false;
    }
    struct stat present = {};
    const bool exists = fstatat(m_folder.number(), m_name.c_str(), &present, AT_SYMLINK_NOFOLLOW) == 0;
    if (!exists && errno != ENOENT)
        return false; // its mode and owner could not be kept
    if (exists && !S_ISREG(present.st_mode)) {
        errno = EEXIST;
        return false;
    }
    std::string temporary;
    const Descriptor file(openTemporary(m_folder.number(), m_name, exists ? 0600 : 0644, temporary));
    if (!file.isOpen())
        return false;
    if (!writeLike(exists ? &present : nullptr, newMode, file, content) ||
        renameat(m_folder.number(), temporary.c_str(), m_folder.number(), m_name.c_str()) != 0) {
        const int reason = errno;
        unlinkat(m_folder.number(), temporary.c_str(), 0);
        errno = reason;
        return false;
    }
    // A folder that cannot be synced is no failure: the new content is in place, and all that a crash could
    // bring back is the old one.
    fsync(m_folder.number());
    return true;
}

bool writeOutput(const std::string& path, const std::string& content, std::optional<mode_t> newMode)
{
    struct stat present = {};
    if (stat(path.c_str(), &present) != 0 || S_ISREG(present.st_mode))
        return FilePlace(path).replace(content, newMode);
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    return file.isOpen() && writeAll(file.number(), content);
}

} // namespace devkit
