// Texts taken apart and handed over: what files, the kernel and scenarios say in words, lists and digits.
#ifndef ZARNEK_DEVKIT_COMMON_WORDS_H
#define ZARNEK_DEVKIT_COMMON_WORDS_H

#include <optional>
#include <string>
#include <string_view>

namespace devkit
{

bool isDigit(char character);
bool startsWith(std::string_view text, std::string_view start);
// Without the blanks, tabs and line ends around it.
std::string_view trimmed(std::string_view text);
// Whether `word` is one of those that stand in `list` with commas between.
bool hasWord(std::string_view list, std::string_view word);
// The bytes that pairs of hexadecimal digits stand for, in either case; nothing when the text is something
// else.
std::optional<std::string> bytesOfHex(std::string_view digits);

// Copies as much of a text as fits into `room` bytes with the terminator; its length. Nothing, and 0, without
// room.
std::size_t copyText(std::string_view text, char* buffer, std::size_t room);

} // namespace devkit

#endif
