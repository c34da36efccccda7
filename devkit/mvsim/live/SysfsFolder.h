// A folder of sysfs, or of a captured copy of it. Whatever cannot be read is as if it were not there; nothing
// throws because of a file.
#ifndef ZARNEK_DEVKIT_MVSIM_SYSFSFOLDER_H
#define ZARNEK_DEVKIT_MVSIM_SYSFSFOLDER_H

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace mvsim
{

class SysfsFolder
{
  public:
    explicit SysfsFolder(std::filesystem::path path);

    SysfsFolder below(const std::filesystem::path& name) const { return SysfsFolder(m_path / name); }
    bool exists() const;
    // The names of what is in it; shorter names first, so that sdb comes before sdaa.
    std::vector<std::string> entries() const;

    // A file's bytes; its text without white space around it, nothing when none is left; the number that its
    // text begins with.
    std::optional<std::string> bytes(const std::filesystem::path& file) const;
    std::optional<std::string> text(const std::filesystem::path& file) const;
    std::optional<std::uint64_t> number(const std::filesystem::path& file) const;
    // The size that a file tells, which is counted in sectors of 512 bytes whatever the disk's own are.
    std::optional<std::uint64_t> kilobytes(const std::filesystem::path& file) const;

    // The folder itself, all links on the way resolved; empty when it does not exist.
    std::filesystem::path resolved() const;

  private:
    std::filesystem::path m_path;
};

} // namespace mvsim

#endif
