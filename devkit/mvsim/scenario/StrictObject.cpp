#include "mvsim/scenario/StrictObject.h"

#include "common/text.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace mvsim
{

namespace
{

constexpr std::size_t LONGEST_FOUND = 60;
const std::string HEX_PREFIX = "hex:";

std::string range(std::uint64_t least, std::uint64_t most)
{
    return std::to_string(least) + " to " + std::to_string(most);
}

std::string wordList(Words words)
{
    std::string text;
    for (const Word& word : words)
        text += (text.empty() ? "" : ", ") + devkit::quoted(word.text);
    return text;
}

struct Unit {
    const char* name;
    std::uint64_t bytes;
};

constexpr Unit UNITS[] = {
    {"kB", 1000},
    {"MB", 1000ULL * 1000},
    {"GB", 1000ULL * 1000 * 1000},
    {"TB", 1000ULL * 1000 * 1000 * 1000},
    {"PB", 1000ULL * 1000 * 1000 * 1000 * 1000},
    {"KiB", 1ULL << 10},
    {"MiB", 1ULL << 20},
    {"GiB", 1ULL << 30},
    {"TiB", 1ULL << 40},
    {"PiB", 1ULL << 50},
};

// "4TB", "1.92 TB", "64KiB" in bytes; at most three digits behind the point, exact, empty when it is no such
// text.
std::optional<std::uint64_t> humanBytes(const std::string& text)
{
    constexpr std::size_t MOST_DIGITS = 18; // what 64 bits hold for certain
    const auto digitsEnd = [&text](std::size_t from) {
        while (from < text.size() && std::isdigit(static_cast<unsigned char>(text[from])) != 0)
            ++from;
        return from;
    };
    const std::size_t wholeEnd = digitsEnd(0);
    std::size_t unitStart = wholeEnd;
    std::string fraction;
    if (wholeEnd < text.size() && text[wholeEnd] == '.') {
        unitStart = digitsEnd(wholeEnd + 1);
        fraction = text.substr(wholeEnd + 1, unitStart - wholeEnd - 1);
        if (fraction.empty() || fraction.size() > 3)
            return std::nullopt;
    }
    if (wholeEnd == 0 || wholeEnd > MOST_DIGITS)
        return std::nullopt;
    if (unitStart < text.size() && text[unitStart] == ' ')
        ++unitStart;
    const std::string unitName = text.substr(unitStart);
    for (const Unit& unit : UNITS) {
        if (unitName == unit.name) {
            fraction.resize(3, '0');
            const std::uint64_t part = std::stoull(fraction) * unit.bytes / 1000;
            const std::uint64_t whole = std::stoull(text.substr(0, wholeEnd));
            if (whole > (std::numeric_limits<std::uint64_t>::max() - part) / unit.bytes)
                return std::nullopt;
            return whole * unit.bytes + part;
        }
    }
    return std::nullopt;
}

} // namespace

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

std::string hexBytes(const std::string& digits, const std::string& place, const Json& found)
{
    std::string nibbles;
    for (const char c : digits) {
        if (c == ' ')
            continue;
        if (std::isxdigit(static_cast<unsigned char>(c)) == 0)
            throw FormatError(place, "hexadecimal digit pairs", describe(found));
        nibbles += c;
    }
    if (nibbles.size() % 2 != 0)
        throw FormatError(place, "hexadecimal digit pairs", describe(found));
    std::string bytes;
    for (std::size_t i = 0; i < nibbles.size(); i += 2)
        bytes += static_cast<char>(std::stoul(nibbles.substr(i, 2), nullptr, 16));
    return bytes;
}

StrictObject::StrictObject(const Json& value, std::string place) : m_value(&value), m_place(std::move(place))
{
    if (!value.is_object())
        throw FormatError(m_place, "an object", describe(value));
}

std::string StrictObject::place(const char* key) const
{
    return placeBelow(m_place, key);
}

const Json* StrictObject::find(const char* key)
{
    if (std::find(m_known.begin(), m_known.end(), key) == m_known.end())
        m_known.emplace_back(key);
    const auto member = m_value->find(key);
    return member == m_value->end() ? nullptr : &*member;
}

std::optional<std::uint64_t> StrictObject::wholeNumber(const char* key, std::uint64_t least,
                                                       std::uint64_t most)
{
    const Json* value = find(key);
    if (value == nullptr)
        return std::nullopt;
    if (!value->is_number_unsigned() || value->get<std::uint64_t>() < least ||
        value->get<std::uint64_t>() > most)
        throw FormatError(place(key), "a whole number from " + range(least, most), describe(*value));
    return value->get<std::uint64_t>();
}

std::optional<bool> StrictObject::flag(const char* key)
{
    const Json* value = find(key);
    if (value == nullptr)
        return std::nullopt;
    if (!value->is_boolean())
        throw FormatError(place(key), "true or false", describe(*value));
    return value->get<bool>();
}

std::optional<std::uint64_t> StrictObject::wordNumber(const char* key, Words words, std::uint64_t most,
                                                      bool joins)
{
    const Json* value = find(key);
    if (value == nullptr)
        return std::nullopt;
    const auto wordValue = [words](const Json& text) -> std::optional<std::uint64_t> {
        for (const Word& word : words)
            if (text == word.text)
                return word.value;
        return std::nullopt;
    };
    if (value->is_number_unsigned() && value->get<std::uint64_t>() <= most)
        return value->get<std::uint64_t>();
    if (const auto single = wordValue(*value))
        return single;
    if (joins && value->is_array()) {
        std::uint64_t joined = 0;
        for (std::size_t i = 0; i < value->size(); ++i) {
            const auto bits = wordValue((*value)[i]);
            if (!bits) {
                throw FormatError(placeBelow(place(key), i), "one of " + wordList(words),
                                  describe((*value)[i]));
            }
            joined |= *bits;
        }
        return joined;
    }
    throw FormatError(place(key),
                      "a number from " + range(0, most) + " or one" + (joins ? " or a list" : "") + " of " +
                          wordList(words),
                      describe(*value));
}

std::optional<std::string> StrictObject::bytes(const char* key, std::size_t width)
{
    const Json* value = find(key);
    if (value == nullptr)
        return std::nullopt;
    if (!value->is_string())
        throw FormatError(place(key), "a text", describe(*value));
    auto text = value->get<std::string>();
    if (text.compare(0, HEX_PREFIX.size(), HEX_PREFIX) == 0)
        text = hexBytes(text.substr(HEX_PREFIX.size()), place(key), *value);
    if (text.size() > width) {
        throw FormatError(place(key), "at most " + std::to_string(width) + " bytes",
                          std::to_string(text.size()));
    }
    return text;
}

std::optional<std::uint64_t> StrictObject::kilobytes(const std::string& prefix)
{
    const std::string inBytes = prefix + "Bytes";
    const std::string inKB = prefix + "KB";
    auto result = number<std::uint64_t>(inKB.c_str());
    const auto exact = number<std::uint64_t>(inBytes.c_str());
    const Json* human = find(prefix.c_str());
    const int given = (result ? 1 : 0) + (exact ? 1 : 0) + (human != nullptr ? 1 : 0);
    if (given > 1) {
        throw FormatError(m_place,
                          "one of " + devkit::quoted(inKB) + ", " + devkit::quoted(inBytes) + ", " +
                              devkit::quoted(prefix),
                          std::to_string(given) + " of them");
    }
    if (exact) {
        result = *exact / 1024;
    } else if (human != nullptr) {
        const auto amount = human->is_string() ? humanBytes(human->get<std::string>()) : std::nullopt;
        if (!amount) {
            throw FormatError(place(prefix.c_str()), "an amount such as \"480GB\", \"1.92 TB\" or \"64KiB\"",
                              describe(*human));
        }
        result = *amount / 1024;
    }
    return result;
}

const Json& StrictObject::list(const char* key)
{
    static const Json EMPTY = Json::array();
    const Json* value = find(key);
    if (value == nullptr)
        return EMPTY;
    if (!value->is_array())
        throw FormatError(place(key), "a list", describe(*value));
    return *value;
}

void StrictObject::finish() const
{
    for (const auto& member : m_value->items()) {
        if (std::find(m_known.begin(), m_known.end(), member.key()) == m_known.end()) {
            std::string keys;
            for (const std::string& key : m_known)
                keys += (keys.empty() ? "" : ", ") + key;
            throw FormatError(placeBelow(m_place, member.key()), "one of the keys " + keys,
                              devkit::quoted(member.key()));
        }
    }
}

} // namespace mvsim
