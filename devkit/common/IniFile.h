// An INI file on disk; its grammar is that of IniText. Safe from several threads, updates of any file by this
// process come one after the other.
#ifndef ZARNEK_DEVKIT_INIFILE_H
#define ZARNEK_DEVKIT_INIFILE_H

#include <optional>
#include <string>
#include <string_view>

namespace devkit
{

class IniFile
{
  public:
    explicit IniFile(std::string path) : m_path(std::move(path)) {}

    // Nothing when the key or the file is missing, or the file cannot be read or is larger than 1 MiB.
    std::optional<std::string> value(std::string_view section, std::string_view key) const;
    // Creates or replaces one key in one step; creates the section and the file, not the folder. False: the
    // file is as it was.
    bool write(std::string_view section, std::string_view key, std::string_view value) const;

  private:
    std::string m_path;
};

} // namespace devkit

#endif
