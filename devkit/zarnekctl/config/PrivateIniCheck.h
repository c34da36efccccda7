// Looks through the private INI for what would keep the vendor library from being loaded.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_PRIVATEINICHECK_H
#define ZARNEK_DEVKIT_ZARNEKCTL_PRIVATEINICHECK_H

#include "common/IniText.h"
#include "zarnekctl/config/Finding.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace zarnekctl
{

// Opens the vendor library of that name and says why the plug-in would find nothing through it, empty when it
// would. Throws Failure when it cannot be opened.
using LibraryProbe = std::function<std::string(const std::string& name)>;

// All findings, by line. The vendor library that the file names goes through the probe, if there is one.
Findings checkPrivateIni(const std::filesystem::path& file, const LibraryProbe& probe);

// What the private INI says about the vendor library.
struct VendorEntry {
    std::optional<std::string> id;
    std::string nameKey; // where the name of the library stands; under the one known id when there is none
    std::optional<std::string> name; // of the library

    explicit VendorEntry(const devkit::IniText& privateIni);
};

// Its name in this file; empty when there is none.
std::string vendorLibraryName(const std::filesystem::path& privateIni);

} // namespace zarnekctl

#endif
