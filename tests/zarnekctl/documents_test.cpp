// What is written down in two places agrees: tables, documents, shipped files.
#include "zarnekctl/AlertTable.h"
#include "zarnekctl/MappingCheck.h"
#include "zarnekctl/OptionTable.h"
#include "zarnekctl/PropertyTable.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <regex>

using namespace zarnekctl;
using testing::HasSubstr;

namespace
{

const std::string sourceFolder = ZARNEK_SOURCE_DIR;

std::string fileText(const std::string& name)
{
    std::ifstream file(sourceFolder + "/" + name);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

// The manual page writes each dash as \-.
std::string asInManual(const std::string& text)
{
    return std::regex_replace(text, std::regex("-"), "\\-");
}

} // namespace

TEST(Documents, manualPageHasEveryCommandOptionAndFormat)
{
    const std::string page = fileText("docs/zarnekctl.1");
    std::size_t count = 0;
    const OptionRow* options = optionRows(count);
    for (std::size_t index = 0; index < count; ++index) {
        const std::string name = asInManual(options[index].name);
        const std::string entry = options[index].argument == nullptr
                                      ? ".TP\n.B " + name + "\n"
                                      : ".TP\n.BI " + name + " \" " + options[index].argument + "\"\n";
        EXPECT_THAT(page, HasSubstr(entry));
    }
    const FormatRow* formats = formatRows(count);
    for (std::size_t index = 0; index < count; ++index)
        EXPECT_TRUE(std::regex_search(page, std::regex(std::string("\n\\.BR? ") + formats[index].name)))
            << index;
    const CommandRow* commands = commandRows(count);
    for (std::size_t index = 0; index < count; ++index)
        EXPECT_THAT(page, HasSubstr(std::string(".SS ") + commands[index].name + "\n"));
}

TEST(Documents, everyPropertyIdHasARowAndIsDocumented)
{
    const std::string header = fileText("platform/sdo.h");
    const std::regex constant("unsigned int SSPROP_\\w+ = (\\d+);");
    std::size_t found = 0;
    for (std::sregex_iterator at(header.begin(), header.end(), constant), end; at != end; ++at) {
        const auto id = static_cast<unsigned int>(std::stoul((*at)[1]));
        if (id == 0)
            continue;
        ++found;
        EXPECT_NE(propertyRow(id), nullptr) << (*at)[0];
    }
    EXPECT_GT(found, 50U);

    const std::string document = fileText("docs/json-output.md");
    std::size_t count = 0;
    const PropertyRow* rows = propertyRows(count);
    for (std::size_t index = 0; index < count; ++index)
        EXPECT_THAT(document, HasSubstr("\n| `" + std::string(rows[index].name) + "` | " +
                                        std::to_string(rows[index].id) + " |"));
}

TEST(Documents, shippedConfigurationIsCleanAndEachAlertHasAMeaning)
{
    const auto file = MappingFile::read(sourceFolder + "/config/MarvelAlertMapping.ini");
    ASSERT_TRUE(file);
    for (const Finding& finding : MappingCheck(*file).run())
        ADD_FAILURE() << finding.text("MarvelAlertMapping.ini");
    for (const auto& line : file->lines()) {
        if (line.kind == MappingFile::LineKind::Pair && line.section != MappingFile::sequenceSection) {
            EXPECT_NE(alertRow(MappingFile::numberOf(line.value)), nullptr) << line.raw;
        }
    }
    EXPECT_EQ(file->sequenceNumber(), 0U);
}
