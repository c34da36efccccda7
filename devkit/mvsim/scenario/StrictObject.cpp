#include "mvsim/scenario/StrictObject.h"

#include "common/text.h"
#include "common/words.h"
#include "mvsim/scenario/Amount.h"

#include <algorithm>
#include <utility>

namespace mvsim
{

namespace
{

constexpr std::uint64_t BYTES_PER_KB = 1024;
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

} // namespace

std::string hexBytes(const std::string& text, const std::string& place, const Json& found)
{
    std::string digits = text;
    digits.erase(std::remove(digits.begin(), digits.end(), ' '), digits.end());
    const auto bytes = devkit::bytesOfHex(digits);
    if (!bytes)
        throw FormatError(place, "hexadecimal digit pairs", describe(found));
    return *bytes;
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
            if (text.is_string() && text.get_ref<const std::string&>() == word.text)
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
    if (devkit::startsWith(text, HEX_PREFIX))
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
        result = *exact / BYTES_PER_KB;
    } else if (human != nullptr) {
        const auto amount = human->is_string() ? bytesOfAmount(human->get<std::string>()) : std::nullopt;
        if (!amount) {
            throw FormatError(place(prefix.c_str()), "an amount such as \"480GB\", \"1.92 TB\" or \"64KiB\"",
                              describe(*human));
        }
        result = *amount / BYTES_PER_KB;
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
