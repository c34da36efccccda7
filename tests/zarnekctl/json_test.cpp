// JSON of discovery and of monitoring, read back with the parser.
#include "zarnekctl/JsonPrinter.h"
#include "zarnekctl/MappingFile.h"
#include "zarnekctl/MonitorJsonPrinter.h"
#include "zarnekctl/Samples.h"

#include <gmock/gmock.h>

#include <sstream>

using namespace zarnekctl;

namespace
{

Json document(const System& system)
{
    std::ostringstream out;
    JsonPrinter().print(system, out);
    return Json::parse(out.str());
}

} // namespace

TEST(JsonPrinter, emptySystemIsValid)
{
    const Json json = document({});
    EXPECT_EQ(json.at("format_version"), 1);
    EXPECT_TRUE(json.at("objects").is_array());
    EXPECT_TRUE(json.at("objects").empty());
}

TEST(JsonPrinter, objectsNameEachOtherByIdentity)
{
    const Json json = document(sampleSystem());
    const Json& drive = json.at("objects").at(4);
    EXPECT_EQ(drive.at("kind"), "virtual_disk");
    EXPECT_EQ(drive.at("identity"), "773/9 24600=0 24629=0");
    EXPECT_EQ(drive.at("parent"), "769/9 24600=0");
    EXPECT_EQ(drive.at("links"),
              Json({"772/9 24600=0 24810=0", "772/9 24600=0 24810=1", "772/9 24600=0 24810=3"}));
    EXPECT_EQ(drive.at("insertions"), 2);
    EXPECT_EQ(drive.at("properties").at("state"),
              Json({{"id", 24580}, {"type", 8}, {"value", 0x20}, {"words", "degraded"}}));
    EXPECT_EQ(json.at("objects").at(0).at("parent"), nullptr);
    const Json& single = json.at("objects").at(6);
    EXPECT_EQ(single.at("identity"), nullptr);
    EXPECT_EQ(single.at("incomplete"), true);
}

TEST(JsonPrinter, rawValuesSurvive)
{
    System system;
    Object disk = sampleDisk(0, 0, 4, 2);
    disk = with(disk, u64(SSPROP_SIZE_U64, 18446744073709551615U));
    disk = with(disk, u64(SSPROP_FREERAIDDISKSPACE_U64, 1ULL << 53));
    disk = with(disk, text(SSPROP_SERIALNUM_ASTRING, "A\xff\x01"));
    disk = with(disk, {31000, 200, Bytes{"\x01\x02"}});
    disk = with(disk, {31001, SDO_TYPE_S32, std::int64_t{-5}});
    system.nodes = {{disk, -1, {}, 1, false}};
    const Json properties = document(system).at("objects").at(0).at("properties");
    EXPECT_EQ(properties.at("size").at("value").get<std::uint64_t>(), 18446744073709551615U);
    EXPECT_EQ(properties.at("size").at("text"), "18446744073709551615");
    EXPECT_FALSE(properties.at("free_raid_space").contains("text"));
    EXPECT_EQ(properties.at("serial_number").at("value"), "A\\xff\\x01");
    EXPECT_EQ(properties.at("serial_number").at("bytes"), "41ff01");
    EXPECT_EQ(properties.at("property_31000").at("bytes"), "0102");
    EXPECT_EQ(properties.at("property_31001").at("value"), -5);
    EXPECT_EQ(properties.at("nexus").at("value"), Json({24600, 24810}));
}

TEST(MonitorJsonPrinter, eachRecordIsOneLine)
{
    std::ostringstream out;
    MonitorJsonPrinter printer(out);
    printer.start({"scenario \xff", 1, 3, 1, 0.5, 0});
    Alert alert;
    alert.time = WallClock::time_point(std::chrono::milliseconds(1714533165120));
    alert.number = 2050;
    alert.kind = ObjectKind::PhysicalDisk;
    alert.device = 3;
    alert.sequence = 17;
    printer.alert(alert);
    alert.number = 9999;
    alert.kind = ObjectKind::Controller;
    alert.sequence.reset();
    printer.alert(alert);
    const Object before = sampleDisk(0, 3, 4, 2);
    printer.refresh({alert.time,
                     RefreshKind::Changed,
                     sampleDisk(0, 3, 8, 2),
                     {{SSPROP_STATE_U32, u32(SSPROP_STATE_U32, 4), u32(SSPROP_STATE_U32, 8)},
                      {SSPROP_MEDIA_U32, std::nullopt, u32(SSPROP_MEDIA_U32, 2)}}});
    printer.refresh({alert.time, RefreshKind::Incomplete, sampleSingleDisk(0, 3), {}});
    printer.unchanged(4);
    printer.summary({7, 2, 6, 1, 1, MappingFile::noNumber});

    std::istringstream in(out.str());
    std::vector<Json> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(Json::parse(line));
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_EQ(lines[0].at("polls"), nullptr);
    EXPECT_EQ(lines[1].at("time"), "2024-05-01T03:12:45.120Z");
    EXPECT_EQ(lines[1].at("severity"), "critical");
    EXPECT_EQ(lines[1].at("name"), "disk 3 on controller 0");
    EXPECT_EQ(lines[1].at("sequence"), 17);
    EXPECT_EQ(lines[2].at("meaning"), nullptr);
    EXPECT_EQ(lines[2].at("device"), nullptr);
    EXPECT_EQ(lines[2].at("sequence"), nullptr);
    EXPECT_EQ(lines[3].at("changes").at("state").at("after").at("words"), "failed");
    EXPECT_EQ(lines[3].at("changes").at("media").at("before"), nullptr);
    EXPECT_EQ(lines[4].at("outcome"), "incomplete");
    EXPECT_EQ(lines[4].at("properties").size(), 3U);
    EXPECT_EQ(lines[5].at("objects"), 4);
    EXPECT_EQ(lines[6].at("sequence"), nullptr);
    for (const Json& line : lines)
        EXPECT_EQ(line.at("format_version"), 1);
}
