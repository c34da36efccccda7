// Whole files: reading, and replacing in one step.
#ifndef ZARNEK_DEVKIT_COMMON_FILES_H
#define ZARNEK_DEVKIT_COMMON_FILES_H

#include <cstddef>
#include <string>

namespace devkit
{

enum class FileRead { Done, Missing, TooLarge, Failed };

constexpr std::size_t MIB = std::size_t{1024} * 1024;

// Reads a regular file; anything else but a missing one has failed. One of more than `limit` bytes is too
// large, and not read; the common limit is far above what configuration files and the kernel's hold.
FileRead readFile(const std::string& path, std::string& content, std::size_t limit = MIB);
// What keeps a configuration file that is not Done from being read, for people.
const char* reasonOf(FileRead read);

// Gives a file new content so that at any moment, a crash included, either the old or the new content is
// there. An existing file keeps its mode, and its owner where this process may give it; behind a symbolic
// link, its target is replaced. False: nothing has changed, no trace is left, and errno tells why.
bool replaceFile(const std::string& path, const std::string& content);

} // namespace devkit

#endif
