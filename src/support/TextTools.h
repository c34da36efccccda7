// Text helpers: trimming, narrowing, and numbers out of text. Safe on any thread. White space is what the
// host's C locale takes for it.
#ifndef ZARNEK_SUPPORT_TEXTTOOLS_H
#define ZARNEK_SUPPORT_TEXTTOOLS_H

#include <cstddef>
#include <string>

namespace stg
{

// Removes the blanks at both ends, then the tabs at both ends, in place, and returns a copy. One pass each: a
// blank behind a leading tab stays.
std::string removeBeginingAndTrailingSpaces(std::string& text);
std::wstring removeBeginingAndTrailingSpaces(std::wstring& text);

// Removes every white-space character, in place, and returns a copy.
std::string removeAllSpaces(std::string& text);
std::wstring removeAllSpaces(std::wstring& text);

// Removes every character for which invalidChar holds, in place, and returns a copy.
std::string stripUnicode(std::string& text);
// True for a char with its top bit set.
bool invalidChar(char c);

// Keeps the low byte of each character.
std::string convertToString(const std::wstring& wide);
// Widens each char with its sign.
std::wstring convertToWString(const std::string& narrow);

// What strtoul and strtol with base 10 give where a long has 32 bits: the number that the text begins with, 0
// without one, the limit of the type beyond it. The same on every ABI.
unsigned int toUnsigned32(const std::string& text);
int toSigned32(const std::string& text);

// The text in a field of `width` bytes that need not be terminated.
std::string textFromField(const char* field, std::size_t width);

} // namespace stg

#endif
