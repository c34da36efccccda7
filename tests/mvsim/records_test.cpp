// The records as they lie in memory: readers of the library rely on every offset.
#include "mvsim/SimTest.h"

namespace
{

using testing::Each;

// `size` zero bytes with runs of bytes put at offsets.
Bytes record(std::size_t size, const std::vector<std::pair<std::size_t, Bytes>>& runs)
{
    Bytes bytes(size, 0);
    for (const auto& [offset, run] : runs) {
        std::copy(run.begin(), run.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    }
    return bytes;
}

Bytes text(const std::string& characters)
{
    return {characters.begin(), characters.end()};
}

const char* const kDevices = R"(
    "disks": [{
        "id": 513, "slot": 1027, "model": "0123456789012345678901234567890123456789",
        "serial": "S-1", "revision": "12345678", "sasAddress": "hex:50 01 ff 00 a1",
        "linkFlags": "sas", "featureFlags": ["6G", "writeCache", "encryption"], "linkSpeed": "12G",
        "sizeKB": 18446744073709551614, "blockSize": 4096, "media": "ssd",
        "raidStatus": ["online", "failed"], "freeKB": 72623859790382856,
        "raw": {"info": {"0": "aabb", "0xf7": "cc"}, "config": {"5": "dd"},
                "raidStatus": {"0x17": "ee"}, "freeSpace": {"0x10": "ff"}}
    }],
    "virtualDisks": [{
        "id": 258, "logicalDrive": 772, "name": "Data", "raid": "60", "status": "rebuilding",
        "stripeKB": 513, "cacheFlags": "writeBack", "sizeKB": 4328719365,
        "raw": {"info": {"0x137": "77"}, "config": {"0": "88"}}
    }])";

class RecordsTest : public SimTest
{
};

TEST_F(RecordsTest, DiskRecords)
{
    loadAdapter(kDevices);
    EXPECT_EQ(list(&MV_PD_GetHDInfo_Ext).entry(248),
              record(248, {{0x00, {0xaa, 0xbb}},
                           {0x24, {0x01, 0x02}},
                           {0x30, {0x50, 0x01, 0xff, 0x00, 0xa1}},
                           {0x42, {0x04}},
                           {0x48, {0x90, 0x01, 0x00, 0x00}},
                           {0x4c, text("0123456789012345678901234567890123456789")},
                           {0x74, text("S-1")},
                           {0x88, text("12345678")},
                           {0x90, {0xfe, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff}},
                           {0xa4, {0x00, 0x10, 0x00, 0x00}},
                           {0xb8, {0x01}},
                           {0xf7, {0xcc}}}));
    EXPECT_EQ(list(&MV_PD_GetConfig).entry(8),
              record(8, {{0x03, {0x04}}, {0x05, {0xdd}}, {0x06, {0x03, 0x04}}}));

    // The two calls for one disk keep the header that they came with, but for the count of entries.
    const Bytes header = {0, 2, 0x01, 0x02, 1, 0, 0, 0, 0x91, 0, 0, 0, 0, 0, 0, 0x98};
    Bytes status(24, 0xee);
    std::copy(header.begin(), header.end(), status.begin());
    EXPECT_EQ(MV_PD_GetHDRaidStatus(0, reinterpret_cast<_HD_RAID_Status_Request*>(status.data())), 0U);
    Bytes expected = record(24, {{0, header}, {0x06, {1}}, {0x14, {0x0a}}, {0x17, {0xee}}});
    EXPECT_EQ(status, expected);

    Bytes space(32, 0xee);
    std::copy(header.begin(), header.end(), space.begin());
    EXPECT_EQ(MV_PD_GetFreeSpaceInfo(0, reinterpret_cast<_HD_FreeSpaceInfo_Request*>(space.data())), 0U);
    expected = record(32, {{0, header}, {0x06, {1}}, {0x10, {0xff}}, {0x18, {8, 7, 6, 5, 4, 3, 2, 1}}});
    EXPECT_EQ(space, expected);
}

TEST_F(RecordsTest, LogicalDriveRecords)
{
    loadAdapter(kDevices);
    EXPECT_EQ(list(&MV_LD_GetInfo).entry(312), record(312, {{0x00, {0x02, 0x01}},
                                                            {0x02, {5}},
                                                            {0x04, {0x01, 0x02}},
                                                            {0x06, {0x60}},
                                                            {0x08, {1}},
                                                            {0x18, {0x05, 0x04, 0x03, 0x02, 0x01}},
                                                            {0x20, text("Data")},
                                                            {0x137, {0x77}}}));
    EXPECT_EQ(list(&MV_LD_GetConfig).entry(24), record(24, {{0x00, {0x88}}, {0x04, {0x04, 0x03}}}));
}

TEST_F(RecordsTest, AdapterRecords)
{
    load(R"({"format": 1, "name": "", "adapters": [{
        "slot": 67305985, "model": 1541, "ports": 7, "maxBufferKB": 2312, "rom": [257, 514, 771, 1028],
        "alarm": true, "rebuildRate": 128,
        "raw": {"info": {"0x12f": "99"}, "config": {"0x3f": "98"}, "oem": {"0x47": "97"}},
        "disks": [{"id": 1, "slot": 1, "repeat": 3}, {"id": 9, "slot": 9, "gone": true}],
        "virtualDisks": [{"id": 5}, {"id": 6}]
      }, {"slot": 0, "maxBufferKB": 0, "pdCount": 200, "vdCount": 201},
      {"slot": 0, "maxBufferKB": 0, "raw": {"info": {"0x5a": "c8", "0x5d": "c9"}}}]})");
    Bytes info(304, 0xee);
    auto* infoRecord = reinterpret_cast<_Adapter_Info*>(info.data());
    unsigned int count = 0;
    EXPECT_EQ(MV_Adapter_GetInfo(0, &count, infoRecord), 0U);
    EXPECT_EQ(info, record(304, {{0x34, {1, 2, 3, 4}},
                                 {0x46, {5, 6}},
                                 {0x48, {7}},
                                 {0x5a, {3}},
                                 {0x5d, {2}},
                                 {0x6a, {8, 9}},
                                 {0x12f, {0x99}}}));
    for (const unsigned char adapter : {std::uint8_t{1}, std::uint8_t{2}}) {
        EXPECT_EQ(MV_Adapter_GetInfo(adapter, &count, infoRecord), 0U);
        EXPECT_EQ(info, record(304, {{0x5a, {200}}, {0x5d, {201}}}));
    }

    Bytes config(64, 0xee);
    EXPECT_EQ(MV_Adapter_GetConfig(0, &count, reinterpret_cast<_Adapter_Config_V2*>(config.data())), 0U);
    EXPECT_EQ(config, record(64, {{0x00, {1}}, {0x08, {128}}, {0x3f, {0x98}}}));
    EXPECT_EQ(count, 0U);

    Bytes oem(72, 0xee);
    oem[0] = 72;
    oem[1] = 0;
    oem[0x10] = 0;
    auto* oemRecord = reinterpret_cast<_Adapter_OEM_Data*>(oem.data());
    EXPECT_EQ(MV_Adapter_Get_OEM_Data(0, oemRecord), 0U);
    EXPECT_EQ(oem, record(72, {{0x00, {72}}, {0x18, {1, 1, 2, 2, 3, 3, 4, 4}}, {0x47, {0x97}}}));
    oem[0x10] = 1;
    EXPECT_EQ(MV_Adapter_Get_OEM_Data(0, oemRecord), 1U) << "another record than the one there is";
    oem[0x10] = 0;
    oem[0] = 71;
    EXPECT_EQ(MV_Adapter_Get_OEM_Data(0, oemRecord), 5U) << "too little room";
}

TEST_F(RecordsTest, EventRecord)
{
    loadAdapter("", R"("timeline": [{"poll": 1, "events": [
        {"class": "physicalDisk", "code": 513, "device": 1027, "sequence": 4278321415, "raw": {"4": "a1", "0x3f": "a2"}},
        {"class": 1, "code": 7, "raw": {"0x0c": "05060708"}}]}])");
    Bytes events(3 * 64, 0xee);
    unsigned int count = 9;
    EXPECT_EQ(MV_EVT_GetEvent(0, 50, &count, reinterpret_cast<_Event*>(events.data())), 0U);
    EXPECT_EQ(count, 2U);
    EXPECT_EQ(Bytes(events.begin(), events.begin() + 64), record(64, {{0x00, {2, 0}},
                                                                      {0x02, {1, 2}},
                                                                      {0x04, {0xa1}},
                                                                      {0x08, {3, 4}},
                                                                      {0x0c, {7, 1, 2, 255}},
                                                                      {0x3f, {0xa2}}}));
    EXPECT_EQ(Bytes(events.begin() + 64, events.begin() + 128),
              record(64, {{0x00, {1}}, {0x02, {7}}, {0x0c, {5, 6, 7, 8}}}));
    EXPECT_THAT(Bytes(events.begin() + 128, events.end()), Each(0xee));
}

// Words and amounts come out as the number that the record has for them.
TEST_F(RecordsTest, WordsAndAmounts)
{
    struct Case {
        const char* member;
        ListCall call;
        std::size_t offset;
        Bytes bytes;
    };
    const Case cases[] = {
        {R"("linkFlags": "sata")", &MV_PD_GetHDInfo_Ext, 0x42, {0x01}},
        {R"("linkFlags": 255)", &MV_PD_GetHDInfo_Ext, 0x42, {0xff}},
        {R"("featureFlags": ["1.5G", "3G", "12G"])", &MV_PD_GetHDInfo_Ext, 0x48, {0x0c, 0x04, 0, 0}},
        {R"("media": "hdd")", &MV_PD_GetHDInfo_Ext, 0xb8, {0}},
        {R"("sizeBytes": 480103981056)", &MV_PD_GetHDInfo_Ext, 0x90, {0x58, 0x1b, 0xf2, 0x1b, 0}},
        {R"("sizeBytes": 2047)", &MV_PD_GetHDInfo_Ext, 0x90, {1, 0}},
        {R"("size": "1.92 TB")", &MV_PD_GetHDInfo_Ext, 0x90, {0xc0, 0x3a, 0xc2, 0x6f, 0}},
        {R"("size": "64KiB")", &MV_PD_GetHDInfo_Ext, 0x90, {64, 0}},
        {R"("size": "16383PiB")", &MV_PD_GetHDInfo_Ext, 0x90, {0, 0, 0, 0, 0, 0xff, 0x3f, 0}},
        {R"("linkSpeed": "1.5G")", &MV_PD_GetConfig, 0x03, {1}},
        {R"("linkSpeed": "3G")", &MV_PD_GetConfig, 0x03, {2}},
        {R"("linkSpeed": "6G")", &MV_PD_GetConfig, 0x03, {3}},
    };
    for (const Case& row : cases) {
        loadAdapter(std::string(R"("disks": [{"id": 0, "slot": 0, )") + row.member + "}]");
        const Answer answer = list(row.call);
        const auto start = answer.entries.begin() + static_cast<std::ptrdiff_t>(row.offset);
        EXPECT_EQ(Bytes(start, start + static_cast<std::ptrdiff_t>(row.bytes.size())), row.bytes)
            << row.member;
    }

    const std::pair<const char*, unsigned char> drives[] = {
        {R"("raid": "0")", 0},     {R"("raid": "10")", 0x10},   {R"("raid": 10)", 10},
        {R"("raid": "50")", 0x50}, {R"("raid": "none")", 0x0f}, {R"("status": "failed", "raid": "6")", 6},
        {R"("raid": "1")", 1},     {R"("raid": "5")", 5},
    };
    for (const auto& [member, mode] : drives) {
        loadAdapter(std::string(R"("virtualDisks": [{"id": 0, )") + member + "}]");
        EXPECT_EQ(list(&MV_LD_GetInfo).entries[0x06], mode) << member;
    }
    const std::pair<const char*, unsigned char> states[] = {
        {"optimal", 0},    {"degraded", 1},  {"missing", 2},   {"failed", 3},        {"offline", 4},
        {"rebuilding", 5}, {"checking", 10}, {"unknown", 255}, {"initialising", 15},
    };
    for (const auto& [word, status] : states) {
        loadAdapter(std::string(R"("virtualDisks": [{"id": 0, "status": ")") + word + "\"}]");
        EXPECT_EQ(list(&MV_LD_GetInfo).entries[0x02], status) << word;
    }
    const std::pair<const char*, unsigned int> flags[] = {{"ready", 1},  {"online", 2},    {"spare", 4},
                                                          {"failed", 8}, {"checking", 16}, {"foreign", 32}};
    for (const auto& [word, bit] : flags) {
        loadAdapter(std::string(R"("disks": [{"id": 0, "slot": 0, "raidStatus": ")") + word + "\"}]");
        EXPECT_EQ(diskFlags(0), bit) << word;
    }
}

} // namespace
