// Whole files: reading, and replacing in one step.
#ifndef ZARNEK_DEVKIT_COMMON_FILES_H
#define ZARNEK_DEVKIT_COMMON_FILES_H

#include <string>

namespace devkit
{

enum class FileRead { Done, Missing, Failed };

// Reads a regular file; anything else but a missing one has failed.
FileRead readFile(const std::string& path, std::string& content);

// Gives a file new content so that at any moment, a crash included, either the old or the new content is
// there. An existing file keeps its mode, and its owner where this process may give it; behind a symbolic
// link, its target is replaced. False: nothing has changed, and no trace is left.
bool replaceFile(const std::string& path, const std::string& content);

} // namespace devkit

#endif
