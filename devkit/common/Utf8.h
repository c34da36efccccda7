// Text on its way to a terminal, a file or a trace: what came from disks and files is made harmless here.
#ifndef ZARNEK_DEVKIT_UTF8_H
#define ZARNEK_DEVKIT_UTF8_H

#include <cstddef>
#include <string>
#include <string_view>

namespace devkit
{

bool isUtf8(std::string_view text);

// Control characters, those of the writing direction too, and bytes that are not UTF-8 come out as \x08; with
// `asciiOnly` everything beyond ASCII.
std::string escaped(std::string_view text, bool asciiOnly = false);

// Columns on a terminal: two for a wide character, none for a mark that goes onto the character before it.
std::size_t displayWidth(std::string_view text);
// Filled with blanks to `width` columns; longer text stays whole.
std::string padded(std::string_view text, std::size_t width);

} // namespace devkit

#endif
