// What is written down in two places agrees: tables, documents, shipped files.
#include "common/TempFolder.h"
#include "zarnekctl/cli/OptionTable.h"
#include "zarnekctl/config/MappingFile.h"
#include "zarnekctl/monitor/AlertTable.h"
#include "zarnekctl/print/PropertyTable.h"
#include <zarnek_ini.h>

#include <gmock/gmock.h>

#include <regex>

using namespace zarnekctl;
using testing::HasSubstr;

namespace
{

std::string fileText(const std::string& name)
{
    return TempFolder::readFile(ZARNEK_SOURCE_DIR "/" + name);
}

} // namespace

TEST(Documents, manualPageHasEveryOption)
{
    const std::string page = fileText("docs/zarnekctl.1");
    std::size_t count = 0;
    const OptionRow* options = optionRows(count);
    for (std::size_t index = 0; index < count; ++index) {
        const OptionRow& row = options[index];
        const std::string name = std::regex_replace(row.name, std::regex("-"), "\\-");
        EXPECT_THAT(page,
                    HasSubstr(row.argument == nullptr ? ".TP\n.B " + name + "\n"
                                                      : ".TP\n.BI " + name + " \" " + row.argument + "\"\n"));
    }
}

TEST(Documents, everyPropertyIdHasARowAndIsDocumented)
{
    const std::string header = fileText("platform/sdo.h");
    const std::regex constant("unsigned int SSPROP_\\w+ = ([1-9]\\d*);");
    std::size_t found = 0;
    for (std::sregex_iterator at(header.begin(), header.end(), constant), end; at != end; ++at, ++found)
        EXPECT_NE(propertyRow(static_cast<unsigned int>(std::stoul((*at)[1]))), nullptr) << (*at)[0];
    EXPECT_GT(found, 50U);

    const std::string document = fileText("docs/json-output.md");
    std::size_t count = 0;
    const PropertyRow* rows = propertyRows(count);
    for (std::size_t index = 0; index < count; ++index)
        EXPECT_THAT(document, HasSubstr("\n| `" + std::string(rows[index].name) + "` | " +
                                        std::to_string(rows[index].id) + " |"));
}

TEST(Documents, eachShippedAlertHasAMeaning)
{
    const MappingFile file(fileText("config/MarvelAlertMapping.ini"));
    for (const auto& line : file.lines()) {
        const bool maps = line.kind == MappingFile::LineKind::Pair && line.section != INI_SEQUENCE_SECTION;
        EXPECT_TRUE(!maps || alertRow(MappingFile::numberOf(line.value)) != nullptr) << line.raw;
    }
}
