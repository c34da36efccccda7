#include "zarnekctl/print/Terminal.h"

#include <cctype>
#include <cstdlib>
#include <unistd.h>

namespace zarnekctl
{

namespace
{

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

// The first variable that is set decides, as it does for the C library; its word is taken even where that
// locale is not installed.
bool localeIsUtf8()
{
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const std::string locale = environment(name);
        if (locale.empty())
            continue;
        std::string letters;
        for (const char character : locale)
            if (character != '-')
                letters += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
        return letters.find("utf8") != std::string::npos;
    }
    return false;
}

const char* colourOf(Health health)
{
    switch (health) {
    case Health::Good:
        return "\033[32m";
    case Health::Warning:
        return "\033[33m";
    case Health::Critical:
        return "\033[1;31m";
    case Health::Unknown:
        break;
    }
    return "\033[36m";
}

} // namespace

std::string Style::coloured(const std::string& text, Health health) const
{
    return colours ? colourOf(health) + text + "\033[0m" : text;
}

std::string Style::bold(const std::string& text) const
{
    return colours ? "\033[1m" + text + "\033[0m" : text;
}

Style standardOutputStyle()
{
    Style style;
    style.utf8 = localeIsUtf8();
    style.colours =
        isatty(STDOUT_FILENO) != 0 && environment("TERM") != "dumb" && environment("NO_COLOR").empty();
    return style;
}

} // namespace zarnekctl
