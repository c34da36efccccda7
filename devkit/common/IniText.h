// The text of an INI file: sections in brackets, lines of key=value, comments behind ; or #. Blanks around
// names and values do not count, case does; line ends may be LF or CR LF. Keys ahead of the first section
// belong to the section with the empty name. A section may stand several times. What does not fit the grammar
// is kept as it is.
#ifndef ZARNEK_DEVKIT_INITEXT_H
#define ZARNEK_DEVKIT_INITEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace devkit
{

class IniText
{
  public:
    enum class Kind {
        Blank,
        Comment,
        Header,
        Pair,
        OpenHeader, // without "]"; nothing reads it
        NoPair      // without "="; nothing reads it
    };
    struct Line {
        Kind kind;
        std::string text;  // as it stands, without its end
        std::string end;   // "\n", "\r\n", or nothing on a last line
        std::string name;  // of the section or the key
        std::size_t value; // where the value begins in the text
    };

    explicit IniText(std::string_view text);

    // In their order: the line with the number n stands at n - 1.
    const std::vector<Line>& lines() const { return m_lines; }

    // The first value of the key in the first section of that name that holds it.
    std::optional<std::string> value(std::string_view section, std::string_view key) const;

    // Gives the key a value where value() finds it; else adds a line at the end of the first section of that
    // name, ahead of its trailing blank lines; else adds the section at the end of the text. All other lines
    // stay as they are, and so do the style of the line ends and the presence of the last one. False, and
    // nothing changed, for texts that could not be read back: a key that is empty or would read as something
    // else, names or values with a line end in them.
    bool setValue(std::string_view section, std::string_view key, std::string_view value);

    std::string text() const;

  private:
    static Line parse(std::string_view text, std::string_view end);
    std::optional<std::size_t> find(std::string_view section, std::string_view key) const;
    std::optional<std::size_t> endOf(std::string_view section) const;
    void insert(std::size_t position, std::string_view text);

    std::vector<Line> m_lines;
};

} // namespace devkit

#endif
