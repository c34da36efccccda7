#include "common/files.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace devkit
{

namespace
{

class Descriptor
{
  public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

  private:
    const int m_number;
};

// Where the file itself lies when symbolic links are followed, whether it exists or not; nothing when they
// run in a circle.
std::optional<std::filesystem::path> resolved(std::filesystem::path path)
{
    constexpr int MOST_LINKS = 40;
    std::error_code error;
    for (int links = 0; std::filesystem::is_symlink(path, error); ++links) {
        if (links == MOST_LINKS)
            return std::nullopt;
        path = path.parent_path() / std::filesystem::read_symlink(path, error);
    }
    return path;
}

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

// A name that no other writer uses. A process that had this one's id may have left such a file behind.
std::filesystem::path temporaryFor(const std::filesystem::path& target)
{
    static std::atomic<unsigned int> count{0};
    return target.parent_path() / ('.' + target.filename().string() + '.' + std::to_string(getpid()) + '-' +
                                   std::to_string(++count) + ".tmp");
}

// Opens a new file beside the target and sets `path` to its name.
int openTemporary(const std::filesystem::path& target, std::filesystem::path& path)
{
    int descriptor = -1;
    do {
        path = temporaryFor(target);
        descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (descriptor < 0 && errno == EEXIST);
    return descriptor;
}

bool writeLike(const struct stat* model, const Descriptor& file, const std::string& content)
{
    if (model != nullptr) {
        // The owner first: changing it takes mode bits away.
        [[maybe_unused]] const int ignored = fchown(file.number(), model->st_uid, model->st_gid);
        if (fchmod(file.number(), model->st_mode & 07777) != 0)
            return false;
    }
    return writeAll(file.number(), content) && fsync(file.number()) == 0;
}

} // namespace

FileRead readFile(const std::string& path, std::string& content, std::size_t limit)
{
    // Not waiting: a pipe in the file's place must not hang the caller.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen())
        return errno == ENOENT ? FileRead::Missing : FileRead::Failed;
    struct stat status = {};
    if (fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return FileRead::Failed;
    if (static_cast<std::uintmax_t>(status.st_size) > limit)
        return FileRead::TooLarge;
    content.clear();
    char buffer[4096];
    for (;;) {
        const ssize_t length = read(file.number(), buffer, sizeof buffer);
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

const char* reasonOf(FileRead read)
{
    return read == FileRead::TooLarge
               ? "the file is larger than 1 MiB, which no configuration needs: delete it"
               : "the file cannot be read";
}

bool replaceFile(const std::string& path, const std::string& content)
{
    const std::optional<std::filesystem::path> target = resolved(path);
    if (!target) {
        errno = ELOOP;
        return false;
    }
    const std::string folderName = target->has_parent_path() ? target->parent_path().string() : ".";
    const Descriptor folder(open(folderName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        return false;

    struct stat present = {};
    const bool exists = stat(target->c_str(), &present) == 0;
    if (!exists && errno != ENOENT)
        return false; // its mode and owner could not be kept
    std::filesystem::path temporary;
    const Descriptor file(openTemporary(*target, temporary));
    if (!file.isOpen())
        return false;
    if (!writeLike(exists ? &present : nullptr, file, content) ||
        rename(temporary.c_str(), target->c_str()) != 0) {
        const int reason = errno;
        unlink(temporary.c_str());
        errno = reason;
        return false;
    }
    // A folder that cannot be synced is no failure: the new content is in place, and all that a crash could
    // bring back is the old one.
    fsync(folder.number());
    return true;
}

} // namespace devkit
