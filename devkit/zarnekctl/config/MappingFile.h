// The alert mapping file as the plug-in reads it: a line grammar of its own, with traps that `zarnekctl
// check` is there to find.
//
// Blank lines of zero length and lines that begin with ";" are passed over. All white space inside a line
// goes away. A line that holds "[" and "]" is a section header, anything else a key with what stands behind
// the first "=". Keys ahead of the first header count in every section. A line of nothing but white space
// ends the reading, and with it the thread that reads.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MAPPINGFILE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MAPPINGFILE_H

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zarnekctl
{

class MappingFile
{
  public:
    enum class LineKind { Ignored, Section, Pair, Fatal };

    struct Line {
        std::size_t number = 0; // from 1
        LineKind kind = LineKind::Ignored;
        std::string section;   // the header's name; of a pair: the section it stands in
        bool headless = false; // a pair ahead of the first header
        std::string key;
        std::string value; // the whole line where there is no "="
        bool hasEquals = false;
        std::string raw; // without the line feed
    };

    explicit MappingFile(const std::string& content);
    // Nothing when the file cannot be read.
    static std::optional<MappingFile> read(const std::filesystem::path& file);

    const std::vector<Line>& lines() const { return m_lines; }

    // The line that decides what the key means in the section. Nothing when no such key comes, or a fatal
    // line comes first.
    const Line* find(const std::string& section, const std::string& key) const;
    // The fatal line that a search for the key runs into, or null.
    const Line* fatalOnTheWayTo(const std::string& section, const std::string& key) const;

    // The alert number that an event code has in a section; nothing when it counts as unmapped.
    std::optional<std::uint32_t> alertNumber(const std::string& section, unsigned int code) const;
    // The persisted sequence number, INI_NO_NUMBER when there is none.
    std::uint32_t sequenceNumber() const;
    // The same of a file, which may be missing.
    static std::uint32_t sequenceNumberIn(const std::filesystem::path& file);

    // The number that the plug-in makes of a value: leading digits, 0 without any, the largest one
    // for what 32 bits cannot hold; a minus sign negates modulo 2^32.
    static std::uint32_t numberOf(const std::string& value);

  private:
    std::vector<Line> m_lines;
};

} // namespace zarnekctl

#endif
