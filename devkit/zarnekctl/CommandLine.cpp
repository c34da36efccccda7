#include "zarnekctl/CommandLine.h"

#include "zarnekctl/OptionTable.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <limits>

namespace zarnekctl
{

namespace
{

constexpr const char* epilogue =
    "Exit status: 0 done; 1 the plug-in or the vendor library failed; 2 wrong usage; 3 bad input.\n"
    "Without --scenario and --live a shipped scenario is played.";

// Adds one option to a command, in the way that the field's type asks for. The setters outlive the adder and
// hold on to the options themselves.
struct OptionAdder {
    CLI::App& app;
    const OptionRow& row;
    Command command;
    Options& options;

    CLI::Option* operator()(bool Options::*field) const
    {
        return app.add_flag(row.name, options.*field, row.help);
    }

    CLI::Option* operator()(std::optional<std::string> Options::*field) const
    {
        return add<std::string>(
            [&target = options, field](const std::string& value) { target.*field = value; });
    }

    CLI::Option* operator()(std::optional<unsigned int> Options::*field) const
    {
        CLI::Option* option =
            add<unsigned int>([&target = options, field](unsigned int value) { target.*field = value; });
        return field == &Options::polls
                   ? option->check(CLI::Range(1U, std::numeric_limits<unsigned int>::max()))
                   : option;
    }

    CLI::Option* operator()(std::optional<double> Options::*field) const
    {
        return add<double>([&target = options, field](double value) { target.*field = value; })
            ->check(CLI::Range(0.0, 86400.0));
    }

    CLI::Option* operator()(OutputFormat Options::*field) const
    {
        std::size_t count = 0;
        const FormatRow* formats = formatRows(count);
        std::vector<std::string> names;
        for (std::size_t index = 0; index < count; ++index) {
            if (command == Command::Discover ? formats[index].discover : formats[index].monitor)
                names.emplace_back(formats[index].name);
        }
        const auto set = [&target = options, field, formats, count](const std::string& name) {
            for (std::size_t index = 0; index < count; ++index) {
                if (name == formats[index].name)
                    target.*field = formats[index].format;
            }
        };
        return add<std::string>(set)->check(CLI::IsMember(names));
    }

  private:
    template <typename Type, typename Setter>
    CLI::Option* add(Setter setter) const
    {
        return app.add_option_function<Type>(row.name, setter, row.help)->type_name(row.argument);
    }
};

void addOptions(CLI::App& app, Command command, Options& options)
{
    std::size_t count = 0;
    const OptionRow* rows = optionRows(count);
    for (std::size_t index = 0; index < count; ++index) {
        if (belongsTo(rows[index], command))
            std::visit(OptionAdder{app, rows[index], command, options}, rows[index].field);
    }
    for (std::size_t index = 0; index < count; ++index) {
        const OptionRow& row = rows[index];
        if (!belongsTo(row, command))
            continue;
        if (row.needs != nullptr)
            app.get_option(row.name)->needs(app.get_option(row.needs));
        if (row.excludes != nullptr)
            app.get_option(row.name)->excludes(app.get_option(row.excludes));
    }
}

} // namespace

std::optional<ExitStatus> parseCommandLine(int argc, const char* const* argv, Options& options)
{
    CLI::App app("Loads the storage plug-in as a data engine would, and shows what it does.", "zarnekctl");
    app.set_version_flag("--version", std::string("zarnekctl ") + ZARNEKCTL_VERSION);
    app.require_subcommand(1);
    app.footer(epilogue);
    std::size_t count = 0;
    const CommandRow* commands = commandRows(count);
    for (std::size_t index = 0; index < count; ++index) {
        CLI::App* sub = app.add_subcommand(commands[index].name, commands[index].help);
        const Command command = commands[index].command;
        addOptions(*sub, command, options);
        sub->callback([&options, command] { options.command = command; });
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error, std::cout, std::cerr);
        return code == 0 ? ExitStatus::Done : ExitStatus::WrongUsage;
    }
    return std::nullopt;
}

} // namespace zarnekctl
