// What is written down in two places agrees: tables, documents, shipped files.
#include "common/TempFolder.h"
#include "mvsim/model/EventCodes.h"
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
    for (const OptionRow& row : optionRows()) {
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
    for (const PropertyRow& row : propertyRows())
        EXPECT_THAT(document,
                    HasSubstr("\n| `" + std::string(row.name) + "` | " + std::to_string(row.id) + " |"));
}

TEST(Documents, everyEventCodeIsDescribedWithTheAlertThatItIsMappedTo)
{
    const struct {
        const char *word, *section;
    } classes[] = {{"controller", INI_ADAPTER_SECTION},
                   {"virtualDisk", INI_VIRTUAL_DISK_SECTION},
                   {"physicalDisk", INI_PHYSICAL_DISK_SECTION}};
    const std::string description = fileText("docs/scenario-format.md");
    const MappingFile mapping(fileText("config/MarvelAlertMapping.ini"));
    for (const mvsim::EventCode& row : mvsim::EVENT_CODES) {
        const auto& [word, section] = classes[row.eventClass];
        const auto alert = mapping.alertNumber(section, row.code);
        ASSERT_TRUE(alert) << row.name;
        EXPECT_NE(alertRow(*alert), nullptr) << *alert;
        EXPECT_THAT(description, HasSubstr(std::string("| `") + row.name + "` | `" + word + "` | " +
                                           std::to_string(row.code) + " | " + std::to_string(*alert) + " |"));
    }
}
