// Whole files: reading, and replacing in one step, in a folder that may be held open.
#ifndef ZARNEK_DEVKIT_COMMON_FILES_H
#define ZARNEK_DEVKIT_COMMON_FILES_H

#include <cstddef>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/types.h>
#include <utility>

namespace devkit
{

// An open file or folder, closed when this goes.
class Descriptor
{
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor();
    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

  private:
    int m_number = -1;
};

// Not open when there is no such folder, or it cannot be read; errno tells why.
Descriptor openFolder(const std::string& path, int from = AT_FDCWD);

enum class FileRead { Done, Missing, TooLarge, Failed };

constexpr std::size_t MIB = std::size_t{1024} * 1024;

// Reads a regular file; anything else but a missing one has failed. One of more than `limit` bytes is too
// large, and not read; the common limit is far above what configuration files and the kernel's hold.
FileRead readFile(const std::string& path, std::string& content, std::size_t limit = MIB);
// What keeps a configuration file that is not Done from being read, for people.
const char* reasonOf(FileRead read);

// Where a file is or will be: its folder, held open, and its name there. What goes through it stays in that
// folder, whatever takes over the folder's name or is planted in the file's place meanwhile.
class FilePlace
{
  public:
    // The path is taken from the open folder `from`. Where it ends in a symbolic link, the place is that of
    // the link's target, missing or not. A link that belongs neither to root nor to the user of this process
    // may be somebody's trap: it leads to no place, nor do links in a circle.
    explicit FilePlace(const std::string& path, int from = AT_FDCWD);

    // Without a place this has failed.
    FileRead read(std::string& content) const;
    // Gives the file new content so that at any moment, a crash included, either the old or the new content
    // is there. An existing file keeps its mode, and its owner where this process may give it; a new one gets
    // `newMode`, and without that others may read it at most. False: nothing has changed, no trace is left,
    // and errno tells why.
    bool replace(const std::string& content, std::optional<mode_t> newMode = std::nullopt) const;

  private:
    Descriptor m_folder;
    std::string m_name;
    int m_error = 0; // errno for why there is no place
};

// Replaces what a user names as an output in that way. What is there and no regular file, such as a pipe or a
// device, is written to and stays what it is.
bool writeOutput(const std::string& path, const std::string& content,
                 std::optional<mode_t> newMode = std::nullopt);

} // namespace devkit

#endif
