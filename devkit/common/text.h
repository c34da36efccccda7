// Values as text, for the lines of the call sinks and for people.
#ifndef ZARNEK_DEVKIT_COMMON_TEXT_H
#define ZARNEK_DEVKIT_COMMON_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace devkit
{

// The text in quotation marks, with quotation marks, backslashes and control characters escaped, so that it
// stays on one line.
std::string quoted(std::string_view text);
// The same for a C string; null gives the bare word null.
std::string quoted(const char* text);
// Two lower-case digits for each byte, without a prefix.
std::string hex(std::string_view bytes);

// "1 disk", "2 disks".
std::string counted(std::size_t count, const std::string& noun);

} // namespace devkit

#endif
