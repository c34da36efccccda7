// Looks through the private INI for what would keep the vendor library from being loaded.
#ifndef ZARNEKCTL_PRIVATE_INI_CHECK_H
#define ZARNEKCTL_PRIVATE_INI_CHECK_H

#include "zarnekctl/config/Finding.h"

#include <filesystem>
#include <optional>
#include <string>

namespace zarnekctl
{

// All findings, by line. The values are those that the support library reads from `file`; it is left with
// that file as its private INI. The vendor library that it names is opened, in `libraryFolder` or wherever
// the loader finds it; not when the folder is empty.
Findings checkPrivateIni(const std::filesystem::path& file, const std::filesystem::path& libraryFolder);

// One value of the support library's private INI; nothing when the key is missing.
std::optional<std::string> privateIniValue(const std::string& section, const std::string& key);

constexpr const char* vendorIdSection = "VendorID";
constexpr const char* vendorIdKey = "Marvell";
constexpr const char* vendorLibrarySection = "VendorLibName";

} // namespace zarnekctl

#endif
