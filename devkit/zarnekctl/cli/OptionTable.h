// The one table of the command line: parsing, --help and the manual page's option list follow it.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_OPTIONTABLE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_OPTIONTABLE_H

#include "common/Rows.h"
#include "zarnekctl/config/Options.h"

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

// A bit for each command.
using CommandSet = unsigned int;
constexpr CommandSet setOf(Command command)
{
    return 1U << static_cast<unsigned int>(command);
}

struct OptionRow {
    const char* name;     // with its dashes
    const char* argument; // what stands for the value in texts; null for a flag
    CommandSet commands;  // which have it
    OptionField field;
    const char* needs;    // name of the option without which it makes no sense, or null
    const char* excludes; // name of the option that it cannot stand beside, or null
    const char* help;
};

// Numbers of controllers end at 4294967294, and an adapter's index has a byte.
constexpr unsigned int HIGHEST_FIRST_CONTROLLER = 4294967294U - 255;

devkit::Rows<CommandRow> commandRows();
devkit::Rows<OptionRow> optionRows();

struct FormatRow {
    const char* name;
    OutputFormat format;
    CommandSet commands;
};

// A command's first one is its default.
devkit::Rows<FormatRow> formatRows();

} // namespace zarnekctl

#endif
