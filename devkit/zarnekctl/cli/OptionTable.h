// The one table of the command line: parsing, --help and the manual page's option list follow it.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_OPTIONTABLE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_OPTIONTABLE_H

#include "zarnekctl/config/Options.h"

#include <cstddef>
#include <string>
#include <variant>

namespace zarnekctl
{

struct CommandRow {
    Command command;
    const char* name;
    const char* help;
};

// Where an option's value goes, which also says what it takes: nothing, a text, a number.
using OptionField = std::variant<bool Options::*, std::optional<std::string> Options::*,
                                 std::optional<unsigned int> Options::*, std::optional<double> Options::*,
                                 OutputFormat Options::*>;

struct OptionRow {
    const char* name;     // with its dashes
    const char* argument; // what stands for the value in texts; null for a flag
    bool discover;        // which commands have it
    bool monitor;
    bool check;
    OptionField field;
    const char* needs;    // name of the option without which it makes no sense, or null
    const char* excludes; // name of the option that it cannot stand beside, or null
    const char* help;
};

// Numbers of controllers end at 4294967294, and an adapter's index has a byte.
constexpr unsigned int HIGHEST_FIRST_CONTROLLER = 4294967294U - 255;

const CommandRow* commandRows(std::size_t& count);
const OptionRow* optionRows(std::size_t& count);
bool belongsTo(const OptionRow& row, Command command);

struct FormatRow {
    const char* name;
    OutputFormat format;
    bool discover;
    bool monitor;
};

// A command's first one is its default.
const FormatRow* formatRows(std::size_t& count);

} // namespace zarnekctl

#endif
