#include "mvsim/scenario/FormatError.h"

namespace mvsim
{

FormatError::FormatError(const std::string& place, const std::string& expected, const std::string& found)
    : std::runtime_error((place.empty() ? "/" : place) + ": expected " + expected + ", found " + found)
{
}

std::string describe(const Json& value)
{
    switch (value.type()) {
    case Json::value_t::object:
        return "an object";
    case Json::value_t::array:
        return "a list of " + std::to_string(value.size());
    default:
        break;
    }
    constexpr std::size_t LONGEST_FOUND = 60;
    std::string text = value.dump(-1, ' ', true, Json::error_handler_t::replace);
    if (text.size() > LONGEST_FOUND)
        text = text.substr(0, LONGEST_FOUND) + "...";
    return text;
}

std::string placeBelow(const std::string& place, const std::string& key)
{
    std::string escaped;
    for (const char c : key)
        if (c == '~')
            escaped += "~0";
        else if (c == '/')
            escaped += "~1";
        else if (static_cast<unsigned char>(c) < ' ')
            escaped += '?'; // the message is one line
        else
            escaped += c;
    return place + "/" + escaped;
}

std::string placeBelow(const std::string& place, std::size_t index)
{
    return place + "/" + std::to_string(index);
}

} // namespace mvsim
