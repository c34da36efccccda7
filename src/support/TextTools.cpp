#include "support/TextTools.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <limits>

namespace stg
{
namespace
{

template <class Text>
void trimCharacter(Text& text, typename Text::value_type c)
{
    text.erase(0, std::min(text.find_first_not_of(c), text.size()));
    text.erase(text.find_last_not_of(c) + 1);
}

template <class Text>
Text trim(Text& text)
{
    using Char = typename Text::value_type;
    trimCharacter(text, static_cast<Char>(' '));
    trimCharacter(text, static_cast<Char>('\t'));
    return text;
}

template <class Text, class Predicate>
Text removeIf(Text& text, Predicate predicate)
{
    text.erase(std::remove_if(text.begin(), text.end(), predicate), text.end());
    return text;
}

// A long long holds more than any 32-bit value, so clamping comes out as a 32-bit long would saturate.
long long leadingNumber(const std::string& text)
{
    return std::strtoll(text.c_str(), nullptr, 10);
}

} // namespace

std::string removeBeginingAndTrailingSpaces(std::string& text)
{
    return trim(text);
}

std::wstring removeBeginingAndTrailingSpaces(std::wstring& text)
{
    return trim(text);
}

std::string removeAllSpaces(std::string& text)
{
    return removeIf(text, [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; });
}

std::wstring removeAllSpaces(std::wstring& text)
{
    return removeIf(text, [](wchar_t c) { return std::iswspace(static_cast<std::wint_t>(c)) != 0; });
}

std::string stripUnicode(std::string& text)
{
    return removeIf(text, invalidChar);
}

bool invalidChar(char c)
{
    return (static_cast<unsigned char>(c) & 0x80U) != 0;
}

std::string convertToString(std::wstring wide)
{
    std::string narrow;
    narrow.reserve(wide.size());
    for (const wchar_t c : wide)
        narrow.push_back(
            static_cast<char>(static_cast<unsigned char>(static_cast<unsigned long>(c) & 0xFFU)));
    return narrow;
}

std::wstring convertToWString(std::string narrow)
{
    std::wstring wide;
    wide.reserve(narrow.size());
    for (const char c : narrow)
        wide.push_back(static_cast<wchar_t>(static_cast<signed char>(c)));
    return wide;
}

unsigned int toUnsigned32(const std::string& text)
{
    constexpr long long LIMIT = std::numeric_limits<unsigned int>::max();
    const long long value = leadingNumber(text);
    if (value > LIMIT || value < -LIMIT)
        return std::numeric_limits<unsigned int>::max();
    // A minus sign negates modulo 2^32.
    return static_cast<unsigned int>(value);
}

int toSigned32(const std::string& text)
{
    return static_cast<int>(std::clamp<long long>(leadingNumber(text), std::numeric_limits<int>::min(),
                                                  std::numeric_limits<int>::max()));
}

std::string textFromField(const char* field, std::size_t width)
{
    return std::string(field, strnlen(field, width));
}

} // namespace stg
