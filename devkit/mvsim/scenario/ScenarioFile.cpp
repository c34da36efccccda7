#include "mvsim/scenario/ScenarioFile.h"

#include "common/Utf8.h"
#include "common/files.h"
#include "mvsim/scenario/ScenarioReader.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <set>
#include <system_error>

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

// Watches the parser for keys that stand twice in one object, of which a JSON value keeps only one, and for
// more brackets and values than memory has room for.
class ParserWatch
{
  public:
    bool operator()(int, Json::parse_event_t event, Json& parsed)
    {
        using Event = Json::parse_event_t;
        if (++m_values > MOST_VALUES)
            throw FormatError(place(), "at most " + std::to_string(MOST_VALUES) + " keys and values", "more");
        switch (event) {
        case Event::object_start:
        case Event::array_start:
            nextElement();
            if (m_levels.size() == MOST_LEVELS)
                throw FormatError(place(),
                                  "at most " + std::to_string(MOST_LEVELS) + " brackets within each other",
                                  "more");
            m_levels.push_back({event == Event::array_start, 0, {}, {}});
            break;
        case Event::object_end:
        case Event::array_end:
            m_levels.pop_back();
            break;
        case Event::key:
            m_levels.back().key = parsed.get<std::string>();
            if (!m_levels.back().keys.insert(m_levels.back().key).second)
                throw FormatError(place(), "each key once", "it twice");
            break;
        case Event::value:
            nextElement();
            break;
        }
        return true;
    }

    // Of what the parser is at.
    std::string place() const
    {
        std::string text;
        for (const Level& level : m_levels)
            text = level.inList ? placeBelow(text, level.next - 1) : placeBelow(text, level.key);
        return text;
    }

  private:
    static constexpr std::size_t MOST_LEVELS = 32; // a scenario has 7
    static constexpr std::size_t MOST_VALUES = 5000000;

    struct Level {
        bool inList;
        std::size_t next;
        std::string key;
        std::set<std::string> keys;
    };

    void nextElement()
    {
        if (!m_levels.empty() && m_levels.back().inList)
            ++m_levels.back().next;
    }
    std::vector<Level> m_levels;
    std::size_t m_values = 0; // keys and ends of brackets count too
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

Json parseStrictly(const std::string& text)
{
    ParserWatch watch;
    try {
        return Json::parse(text, std::ref(watch));
    } catch (const Json::parse_error& error) {
        const std::string reason = error.what();
        const std::size_t start = reason.find(": ", reason.find("column"));
        throw FormatError(lineAndColumn(text, error.byte), "valid JSON",
                          start == std::string::npos ? reason : reason.substr(start + 2));
    } catch (const Json::out_of_range&) {
        throw FormatError(watch.place(), "a number that 64 bits can hold", "a larger one");
    }
}

} // namespace

Scenario loadScenarioFile(const std::string& file)
{
    try {
        return readScenario(Document(parseStrictly(readWhole(file))));
    } catch (const FormatError& error) {
        throw std::runtime_error(file + ": " + devkit::escaped(error.what()));
    }
}

} // namespace mvsim
