// Where a vendor library is looked for, told without opening it, since what is opened runs.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_LIBRARYSEARCH_H
#define ZARNEK_DEVKIT_ZARNEKCTL_LIBRARYSEARCH_H

#include <filesystem>
#include <string>
#include <vector>

namespace zarnekctl
{

// The file of the library `name` in the folder, where it comes first.
std::filesystem::path libraryBeside(const std::string& name, const std::filesystem::path& folder);

// The files of which the loader takes the first that fits: the one in the folder alone, when it is there;
// otherwise those of the folders that the loader searches, up to the first that has one, or else of its
// cache. All but the last may be missing.
std::vector<std::filesystem::path> libraryPlaces(const std::string& name,
                                                 const std::filesystem::path& folder);

} // namespace zarnekctl

#endif
