#include "zarnekctl/cli/CommandLine.h"

#include "common/Utf8.h"
#include "zarnekctl/cli/OptionTable.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <iostream>
#include <iterator>
#include <limits>
#include <sstream>

namespace zarnekctl
{

namespace
{

constexpr const char* EPILOGUE =
    "Exit status: 0 done; 1 the plug-in or the vendor library failed, or the output\n"
    "could not be written; 2 wrong usage; 3 bad input, or as root a library that\n"
    "others can exchange.";
constexpr std::size_t HELP_WIDTH = 80;
constexpr std::size_t HELP_NAME_WIDTH = 22;

// Broken at blanks into lines of at most so many columns.
std::string wrapped(const std::string& text, std::size_t width)
{
    std::string out;
    std::size_t used = 0;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (!out.empty()) {
            const bool fits = used + 1 + word.size() <= width;
            out += fits ? ' ' : '\n';
            used = fits ? used + 1 : 0;
        }
        out += word;
        used += word.size();
    }
    return out;
}

// An option's name and what stands for its value; all else is for the description to say.
class HelpFormatter : public CLI::Formatter
{
  public:
    HelpFormatter() { column_width(HELP_NAME_WIDTH); }

    std::string make_option_opts(const CLI::Option* option) const override
    {
        return option->get_type_size() == 0 ? "" : " " + option->get_type_name();
    }

    std::string make_option_desc(const CLI::Option* option) const override
    {
        return wrapped(option->get_description(), HELP_WIDTH - HELP_NAME_WIDTH);
    }
};

// "tree, table or dot".
std::string choice(const std::vector<std::string>& words)
{
    std::string text;
    for (std::size_t index = 0; index < words.size(); ++index) {
        if (index != 0)
            text += index + 1 == words.size() ? " or " : ", ";
        text += words[index];
    }
    return text;
}

std::string inQuotes(const std::string& word)
{
    return '"' + devkit::escaped(word) + '"';
}

// The whole text as a number; nothing where it is none, or one out of range.
template <typename Number>
std::optional<Number> numberOf(const std::string& text, Number least, Number most)
{
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    const bool fits = error == std::errc() && stop == end && number >= least && number <= most;
    return fits ? std::optional<Number>(number) : std::nullopt;
}

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
        const std::string expected = row.argument == std::string("DIR") ? "a folder" : "a file";
        return addChecked([&target = options, field](const std::string& text) { target.*field = text; },
                          [](const std::string& text) { return !text.empty(); }, expected);
    }

    CLI::Option* operator()(std::optional<unsigned int> Options::*field) const
    {
        const unsigned int least = field == &Options::polls ? 1 : 0;
        const unsigned int most = field == &Options::globalNumber ? HIGHEST_FIRST_CONTROLLER
                                                                  : std::numeric_limits<unsigned int>::max();
        return addNumber(field, "a whole number", least, most);
    }

    CLI::Option* operator()(std::optional<double> Options::*field) const
    {
        return addNumber(field, "a number of seconds", 0.0, 86400.0);
    }

    CLI::Option* operator()(OutputFormat Options::*field) const
    {
        std::vector<std::string> names;
        for (const FormatRow& format : formatRows())
            if ((format.commands & setOf(command)) != 0)
                names.emplace_back(format.name);
        const auto set = [&target = options, field](const std::string& name) {
            for (const FormatRow& format : formatRows())
                if (name == format.name)
                    target.*field = format.format;
        };
        const auto isKnown = [names](const std::string& name) {
            return std::find(names.begin(), names.end(), name) != names.end();
        };
        CLI::Option* option = addChecked(set, isKnown, choice(names));
        names.front() += " (the default)";
        return option->description(std::string(row.help) + ": " + choice(names));
    }

  private:
    template <typename Setter>
    CLI::Option* add(Setter setter) const
    {
        return app.add_option_function<std::string>(row.name, setter, row.help)->type_name(row.argument);
    }

    template <typename Setter, typename Predicate>
    CLI::Option* addChecked(Setter setter, Predicate isFit, const std::string& expected) const
    {
        return add(setter)->check([isFit, expected](const std::string& text) {
            return isFit(text) ? std::string() : "expected " + expected + ", found " + inQuotes(text);
        });
    }

    template <typename Number>
    CLI::Option* addNumber(std::optional<Number> Options::*field, const char* noun, Number least,
                           Number most) const
    {
        const auto parse = [least, most](const std::string& text) { return numberOf(text, least, most); };
        std::ostringstream expected;
        expected << noun << " from " << least << " to " << most;
        return addChecked(
            [&target = options, field, parse](const std::string& text) { target.*field = parse(text); },
            [parse](const std::string& text) { return parse(text).has_value(); }, expected.str());
    }
};

std::vector<OptionRow> optionsOf(Command command)
{
    const auto rows = optionRows();
    std::vector<OptionRow> own;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(own),
                 [command](const OptionRow& row) { return (row.commands & setOf(command)) != 0; });
    return own;
}

void addOptions(CLI::App& app, Command command, Options& options)
{
    for (const OptionRow& row : optionsOf(command)) {
        CLI::Option* option = std::visit(OptionAdder{app, row, command, options}, row.field);
        if (row.needs != nullptr)
            option->description(option->get_description() + "; only with " + row.needs);
        if (row.excludes != nullptr)
            option->description(option->get_description() + "; not with " + row.excludes);
    }
}

// What a command line misses that is right word by word; empty when nothing.
std::string conflict(const CLI::App& command, Command kind)
{
    for (const OptionRow& row : optionsOf(kind)) {
        if (command.count(row.name) == 0)
            continue;
        if (row.needs != nullptr && command.count(row.needs) == 0)
            return std::string(row.name) + " goes only with " + row.needs;
        if (row.excludes != nullptr && command.count(row.excludes) != 0)
            return std::string(row.name) + " does not go with " + row.excludes;
    }
    return {};
}

std::string subcommandExpected(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands({}))
        names.push_back(command->get_name());
    const auto words = app.remaining();
    return "expected a subcommand (" + choice(names) + "), found " +
           (words.empty() ? "none" : inQuotes(words.front()));
}

// Words that nothing takes.
std::string surplus(const CLI::App& app, const CLI::App& command)
{
    const auto words = command.remaining();
    if (words.empty())
        return "expected one subcommand and its options behind it, found " +
               inQuotes(app.remaining().front());
    const bool isOption = words.front().rfind('-', 0) == 0;
    return command.get_name() + (isOption ? " has no option " : " takes no argument ") +
           inQuotes(words.front());
}

// An option with no value, or with two; the parser tells which one only in its text.
std::string valueCount(const CLI::App& command, const std::string& text)
{
    const std::string name = text.substr(0, text.find(':'));
    const CLI::Option* option = command.get_option_no_throw(name);
    if (option == nullptr)
        return text;
    return name + (option->count() > 1 ? ": given more than once"
                                       : ": the value " + option->get_type_name() + " is missing");
}

// What is wrong with the command line, in one line.
std::string explanation(const CLI::App& app, const CLI::ParseError& error)
{
    const auto chosen = app.get_subcommands();
    if (chosen.empty())
        return subcommandExpected(app);
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)
        return surplus(app, *chosen.front());
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr)
        return valueCount(*chosen.front(), error.what());
    return error.what();
}

} // namespace

std::optional<ExitStatus> parseCommandLine(int argc, const char* const* argv, Options& options)
{
    CLI::App app("Loads the storage plug-in as a data engine would, and shows what it does.", "zarnekctl");
    app.formatter(std::make_shared<HelpFormatter>());
    app.set_help_flag("-h,--help", "show this help");
    app.set_version_flag("--version", std::string("zarnekctl ") + ZARNEKCTL_VERSION, "show the version");
    app.require_subcommand(1);
    app.footer(EPILOGUE);
    for (const CommandRow& row : commandRows()) {
        CLI::App* sub = app.add_subcommand(row.name, row.help);
        const Command command = row.command;
        addOptions(*sub, command, options);
        sub->callback([&options, command] { options.command = command; });
    }
    std::string wrong;
    try {
        app.parse(argc, argv);
        wrong = conflict(*app.get_subcommands().front(), options.command);
    } catch (const CLI::Success& help) {
        app.exit(help, std::cout, std::cerr);
        return ExitStatus::Done;
    } catch (const CLI::ParseError& error) {
        wrong = explanation(app, error);
    }
    if (wrong.empty())
        return std::nullopt;
    const auto chosen = app.get_subcommands();
    std::cerr << "zarnekctl: " << wrong << "\nRun zarnekctl "
              << (chosen.empty() ? "" : chosen.front()->get_name() + " ") << "--help for more information.\n";
    return ExitStatus::WrongUsage;
}

} // namespace zarnekctl
