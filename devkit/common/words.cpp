#include "common/words.h"

#include <charconv>

namespace devkit
{

bool isDigit(char character)
{
    return '0' <= character && character <= '9';
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view SPACE = " \t\r\n";
    const std::size_t first = text.find_first_not_of(SPACE);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(SPACE) - first + 1);
}

bool hasWord(std::string_view list, std::string_view word)
{
    for (;;) {
        const std::size_t comma = list.find(',');
        if (list.substr(0, comma) == word)
            return true;
        if (comma == std::string_view::npos)
            return false;
        list.remove_prefix(comma + 1);
    }
}

std::optional<std::string> bytesOfHex(std::string_view digits)
{
    if (digits.size() % 2 != 0)
        return std::nullopt;
    std::string bytes;
    for (; !digits.empty(); digits.remove_prefix(2)) {
        unsigned char byte = 0;
        const char* const end = digits.data() + 2;
        const auto read = std::from_chars(digits.data(), end, byte, 16);
        if (read.ec != std::errc() || read.ptr != end)
            return std::nullopt;
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

std::size_t copyText(std::string_view text, char* buffer, std::size_t room)
{
    if (buffer == nullptr || room == 0)
        return 0;
    const std::size_t length = text.copy(buffer, room - 1);
    buffer[length] = '\0';
    return length;
}

} // namespace devkit
