#include "mvsim/scenario/ScenarioFile.h"

#include "common/Utf8.h"
#include "common/files.h"
#include "mvsim/scenario/ScenarioReader.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace mvsim
{

namespace
{

std::string readWhole(const std::string& file)
{
    constexpr std::size_t MOST_MIB = 64;
    std::string text;
    std::error_code error;
    switch (devkit::readFile(file, text, MOST_MIB * devkit::MIB)) {
    case devkit::FileRead::Done:
        return text;
    case devkit::FileRead::TooLarge:
        throw std::runtime_error(file + ": larger than " + std::to_string(MOST_MIB) +
                                 " MiB, which no scenario needs");
    case devkit::FileRead::Missing:
        throw FormatError("", "a scenario file", "no file of that name");
    default:
        throw FormatError("", "a scenario file",
                          std::filesystem::is_directory(file, error) ? "a folder"
                                                                     : "something that cannot be read");
    }
}

// Builds a document of what the parser tells it. Unlike the parser's own builder it refuses keys that stand
// twice in one object, and more brackets and values than memory has room for, and leaves nothing behind that
// takes memory to go.
class DocumentBuilder
{
  public:
    bool null() { return add(nullptr); }
    bool boolean(bool value) { return add(value); }
    bool number_integer(std::int64_t value) { return add(value); }
    bool number_unsigned(std::uint64_t value) { return add(value); }
    bool number_float(double value, const std::string&) { return add(value); }
    bool string(std::string& text) { return add(std::move(text)); }
    bool binary(Json::binary_t&) { return false; } // not in texts
    bool start_object(std::size_t) { return open(Json::object()); }
    bool start_array(std::size_t) { return open(Json::array()); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool key(std::string& key)
    {
        Level& level = m_levels.back();
        level.key = std::move(key);
        if (level.container->contains(level.key))
            throw FormatError(place(), "each key once", "it twice");
        count();
        return true;
    }
    template <class Error>
    bool parse_error(std::size_t, const std::string&, const Error& error)
    {
        throw Error(error);
    }

    // Of the value that comes next.
    std::string place() const
    {
        std::string text;
        for (const Level& level : m_levels) {
            const bool inner = &level != &m_levels.back(); // stands in its container already
            text = level.container->is_array() ? placeBelow(text, level.container->size() - (inner ? 1 : 0))
                                               : placeBelow(text, level.key);
        }
        return text;
    }
    Document take() { return std::move(m_document); }

  private:
    static constexpr std::size_t MOST_LEVELS = 32; // a scenario has 7
    static constexpr std::size_t MOST_VALUES = 5000000;

    struct Level {
        Json* container;
        std::string key;
    };

    void count()
    {
        if (++m_values > MOST_VALUES)
            throw FormatError(place(), "at most " + std::to_string(MOST_VALUES) + " keys and values", "more");
    }
    // True, so that the parser goes on.
    bool add(Json value)
    {
        put(std::move(value));
        return true;
    }
    Json& put(Json value)
    {
        count();
        if (m_levels.empty())
            return m_document.root = std::move(value);
        const Level& level = m_levels.back();
        if (level.container->is_object())
            return (*level.container)[level.key] = std::move(value);
        level.container->push_back(std::move(value));
        return level.container->back();
    }
    bool open(Json container)
    {
        if (m_levels.size() == MOST_LEVELS)
            throw FormatError(
                place(), "at most " + std::to_string(MOST_LEVELS) + " brackets within each other", "more");
        m_levels.push_back({&put(std::move(container)), {}});
        return true;
    }
    bool close()
    {
        m_levels.pop_back();
        return true;
    }

    Document m_document;
    std::vector<Level> m_levels;
    std::size_t m_values = 0;
};

std::string lineAndColumn(const std::string& text, std::size_t byte)
{
    const std::size_t end = std::min(byte == 0 ? 0 : byte - 1, text.size());
    const auto stop = text.begin() + static_cast<std::ptrdiff_t>(end);
    const auto line = std::count(text.begin(), stop, '\n') + 1;
    const std::size_t lineFeed = end == 0 ? std::string::npos : text.rfind('\n', end - 1);
    const std::size_t column = end - (lineFeed == std::string::npos ? 0 : lineFeed + 1) + 1;
    return std::to_string(line) + ":" + std::to_string(column);
}

Document parseStrictly(const std::string& text)
{
    DocumentBuilder builder;
    try {
        Json::sax_parse(text, &builder);
        return builder.take();
    } catch (const Json::parse_error& error) {
        const std::string reason = error.what();
        const std::size_t start = reason.find(": ", reason.find("column"));
        throw FormatError(lineAndColumn(text, error.byte), "valid JSON",
                          start == std::string::npos ? reason : reason.substr(start + 2));
    } catch (const Json::out_of_range&) {
        throw FormatError(builder.place(), "a number that 64 bits can hold", "a larger one");
    }
}

} // namespace

Scenario loadScenarioFile(const std::string& file)
{
    try {
        return readScenario(parseStrictly(readWhole(file)));
    } catch (const FormatError& error) {
        throw std::runtime_error(file + ": " + devkit::escaped(error.what()));
    }
}

} // namespace mvsim
