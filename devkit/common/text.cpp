#include "common/text.h"

namespace devkit
{

std::string quoted(std::string_view text)
{
    std::string result = "\"";
    for (const char& character : text) {
        const unsigned int code = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\')
            (result += '\\') += character;
        else if (code < 0x20 || code == 0x7f)
            result += "\\x" + hex({&character, 1});
        else
            result += character;
    }
    return result += '"';
}

std::string quoted(const char* text)
{
    return text == nullptr ? "null" : quoted(std::string_view(text));
}

std::string hex(std::string_view bytes)
{
    static constexpr char DIGITS[] = "0123456789abcdef";
    std::string result;
    for (const char byte : bytes) {
        const unsigned int code = static_cast<unsigned char>(byte);
        (result += DIGITS[code >> 4]) += DIGITS[code & 0xf];
    }
    return result;
}

std::string counted(std::size_t count, const std::string& noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

} // namespace devkit
