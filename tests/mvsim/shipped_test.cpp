// What is shipped fits together: scenarios, event codes, alert mapping and their description.
#include "mvsim/EventCodes.h"
#include "mvsim/SimTest.h"

#include <nlohmann/json.hpp>

#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace
{

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kProject = PROJECT_FOLDER;

std::string readText(const std::string& file)
{
    std::ifstream stream(kProject + "/" + file, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << file;
    return {std::istreambuf_iterator<char>(stream), {}};
}

class ShippedTest : public SimTest
{
};

TEST_F(ShippedTest, ScenariosLoadAndPlayToTheirEnd)
{
    const std::map<std::string, unsigned int> events = {
        {"small-server.json", 0}, {"large-server.json", 0}, {"disk-failure.json", 9}, {"extremes.json", 64}};
    std::set<std::string> seen;
    for (const auto& entry : std::filesystem::directory_iterator(kProject + "/scenarios")) {
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        seen.insert(name);
        EXPECT_EQ(tryLoad(entry.path().string()), "");
        ASSERT_EQ(events.count(name), 1U);
        std::size_t total = 0;
        for (unsigned int i = 0; i < mvsim_last_poll(); ++i) {
            total += poll().size();
        }
        EXPECT_EQ(total, events.at(name));
    }
    EXPECT_EQ(seen.size(), events.size());
}

// What a level leaves of `members` disks that give `each`.
std::uint64_t usable(const std::string& raid, std::uint64_t members, std::uint64_t each)
{
    const std::map<std::string, std::uint64_t> dataDisks = {
        {"0", members},      {"1", 1},           {"5", members - 1}, {"6", members - 2}, {"10", members / 2},
        {"50", members - 2}, {"60", members - 4}};
    return each * dataDisks.at(raid);
}

// In the servers that look real, drives are no larger than their disks, and the disks' states fit the
// drives'.
TEST_F(ShippedTest, CapacitiesAddUp)
{
    std::set<std::string> levels;
    for (const char* name : {"small-server", "large-server", "disk-failure"}) {
        const json scenario = json::parse(readText(std::string("scenarios/") + name + ".json"));
        for (const json& adapter : scenario.at("adapters")) {
            std::map<unsigned int, json> disks;
            for (const json& disk : adapter.at("disks")) {
                disks[disk.at("id").get<unsigned int>()] = disk;
            }
            for (const json& drive : adapter.at("virtualDisks")) {
                SCOPED_TRACE(std::string(name) + " " + drive.at("name").get<std::string>());
                const auto raid = drive.at("raid").get<std::string>();
                levels.insert(raid);
                const auto members = drive.at("members").get<std::vector<unsigned int>>();
                unsigned int failed = 0;
                for (const unsigned int member : members) {
                    const json disk = disks.at(member);
                    if (disk.at("raidStatus") == "failed") {
                        ++failed;
                        continue;
                    }
                    EXPECT_EQ(disk.at("raidStatus"), "online");
                    const std::uint64_t used = disk.at("sizeBytes").get<std::uint64_t>() / 1024 -
                                               disk.at("freeKB").get<std::uint64_t>();
                    EXPECT_EQ(drive.at("sizeKB"), usable(raid, members.size(), used)) << "disk " << member;
                }
                EXPECT_EQ(drive.at("status"), failed == 0 ? "optimal" : "degraded");
            }
        }
    }
    EXPECT_EQ(levels, (std::set<std::string>{"0", "1", "10", "5", "50", "6", "60"}));
}

using Mapping = std::map<std::string, std::map<std::string, unsigned int>>;

// The file by the reading rules of the plug-in, which has no mercy with blanks.
Mapping readMapping()
{
    std::istringstream text(readText("config/MarvelAlertMapping.ini"));
    Mapping mapping;
    std::string section;
    const std::regex pair("([A-Za-z0-9]+)=([0-9]+)");
    for (std::string line; std::getline(text, line);) {
        std::smatch match;
        if (line.empty() || line[0] == ';') {
            continue;
        }
        if (line.front() == '[' && line.back() == ']') {
            section = line.substr(1, line.size() - 2);
        } else if (std::regex_match(line, match, pair) && !section.empty()) {
            EXPECT_TRUE(mapping[section].emplace(match[1], std::stoul(match[2])).second)
                << line << " stands twice";
        } else {
            ADD_FAILURE() << "line cannot be read: " << line;
        }
    }
    return mapping;
}

TEST_F(ShippedTest, EveryEventCodeHasItsAlert)
{
    const Mapping mapping = readMapping();
    const std::string description = readText("docs/scenario-format.md");
    const char* const sections[] = {"Adapter", "VirtualDevice", "PhysicalDevice"};
    const char* const classes[] = {"controller", "virtualDisk", "physicalDisk"};
    std::size_t mapped = 0;
    for (const mvsim::EventCode& row : mvsim::kEventCodes) {
        SCOPED_TRACE(row.name);
        const auto& section = mapping.at(sections[row.eventClass]);
        const auto alert = section.find(std::to_string(row.code));
        ASSERT_NE(alert, section.end());
        EXPECT_GE(alert->second, 2048U);
        EXPECT_THAT(description,
                    HasSubstr(std::string("| `") + row.name + "` | `" + classes[row.eventClass] + "` | " +
                              std::to_string(row.code) + " | " + std::to_string(alert->second) + " |"));
        loadAdapter("",
                    std::string(R"("timeline": [{"poll": 1, "events": [{"code": ")") + row.name + "\"}]}]");
        EXPECT_EQ(poll().front(), std::to_string(row.eventClass) + "/" + std::to_string(row.code) + "/0#1");
        ++mapped;
    }
    EXPECT_EQ(mapping.at("EventSequenceNumber").at("SequenceNumber"), 0U);
    EXPECT_EQ(mapped, mapping.at("Adapter").size() + mapping.at("VirtualDevice").size() +
                          mapping.at("PhysicalDevice").size());

    // Each alert that makes the plug-in discover something again comes from an event of the fitting class.
    const std::map<std::string, std::set<unsigned int>> actions = {
        {"Adapter", {2058, 2085}},
        {"PhysicalDevice", {2050, 2098, 2099, 2158}},
        {"VirtualDevice", {2053, 2054, 2057, 2064, 2073, 2088, 2091, 2092}}};
    for (const auto& [section, alerts] : actions) {
        std::set<unsigned int> missing = alerts;
        for (const auto& [code, alert] : mapping.at(section)) {
            missing.erase(alert);
        }
        EXPECT_THAT(missing, IsEmpty()) << section;
    }
}

TEST_F(ShippedTest, DescribedExampleLoads)
{
    const std::string description = readText("docs/scenario-format.md");
    const std::size_t start = description.find("```json\n");
    ASSERT_NE(start, std::string::npos);
    const std::size_t text = start + 8;
    load(description.substr(text, description.find("```", text) - text));
    EXPECT_EQ(mvsim_last_poll(), 4U);
    poll();
    EXPECT_EQ(poll().size(), 2U);
    EXPECT_EQ(diskFlags(2), 8U);
    EXPECT_EQ(list(&MV_PD_GetConfig).status, 0U);
    poll();
    EXPECT_EQ(list(&MV_PD_GetConfig).status, 187U);
}

} // namespace
