// An INI file on disk; its grammar is that of IniText. Safe from several threads, updates of any file by this
// process come one after the other.
#ifndef ZARNEK_DEVKIT_INIFILE_H
#define ZARNEK_DEVKIT_INIFILE_H

#include "common/files.h"

#include <optional>
#include <string>
#include <string_view>

namespace devkit
{

// Nothing when the key or the file is missing, or the file cannot be read or is larger than 1 MiB.
std::optional<std::string> iniValue(const std::string& path, std::string_view section, std::string_view key);
// Creates or replaces one key in one step; creates the section and the file, not the folder. False: the file
// is as it was.
bool writeIniValue(const FilePlace& place, std::string_view section, std::string_view key,
                   std::string_view value);

} // namespace devkit

#endif
