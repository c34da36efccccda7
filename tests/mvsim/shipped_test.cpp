// What is shipped fits together: event codes, alert mapping and their description.
#include "mvsim/SimTest.h"

#include <set>

namespace
{

using testing::HasSubstr;

std::string readText(const std::string& file)
{
    std::ifstream stream(std::string(PROJECT_FOLDER "/") + file, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << file;
    return {std::istreambuf_iterator<char>(stream), {}};
}

using ShippedTest = SimTest;

TEST_F(ShippedTest, EveryEventCodeHasItsAlert)
{
    const std::string description = readText("docs/scenario-format.md");
    const std::string mapping = readText("config/MarvelAlertMapping.ini");
    const char* const sections[] = {"[Adapter]", "[VirtualDevice]", "[PhysicalDevice]"};
    const char* const classes[] = {"controller", "virtualDisk", "physicalDisk"};
    std::set<unsigned long> alerts;
    for (const mvsim::EventCode& row : mvsim::EVENT_CODES) {
        SCOPED_TRACE(row.name);
        const std::size_t start = mapping.find(sections[row.eventClass]);
        const std::string section = mapping.substr(start, mapping.find("\n[", start) - start);
        const std::string code = std::to_string(row.code);
        const std::size_t line = section.find("\n" + code + "=");
        ASSERT_NE(line, std::string::npos);
        const unsigned long alert = std::stoul(section.substr(line + code.size() + 2));
        alerts.insert(alert);
        EXPECT_THAT(description, HasSubstr(std::string("| `") + row.name + "` | `" + classes[row.eventClass] +
                                           "` | " + code + " | " + std::to_string(alert) + " |"));
        loadAdapter("",
                    std::string(R"("timeline": [{"poll": 1, "events": [{"code": ")") + row.name + "\"}]}]");
        EXPECT_EQ(poll().front(), std::string("1: ") + row.name + " 0");
    }
    // Each alert that makes the plug-in discover something again.
    for (const unsigned long alert : {2058UL, 2085UL, 2050UL, 2098UL, 2099UL, 2158UL, 2053UL, 2054UL, 2057UL,
                                      2064UL, 2073UL, 2088UL, 2091UL, 2092UL}) {
        EXPECT_EQ(alerts.count(alert), 1U) << alert << " never comes";
    }
}

TEST_F(ShippedTest, DescribedExampleLoads)
{
    const std::string description = readText("docs/scenario-format.md");
    const std::size_t start = description.find("```json\n") + 8;
    load(description.substr(start, description.find("```", start) - start));
    EXPECT_EQ(mvsim_last_poll(), 4U);
}

} // namespace
