// The records as they lie in memory: readers of the library rely on every offset.
#include "mvsim/SimTest.h"

namespace
{

using Runs = std::vector<std::pair<std::size_t, Bytes>>;

// A record with runs of bytes put at offsets.
Bytes with(Bytes bytes, const Runs& runs)
{
    for (const auto& [offset, run] : runs)
        std::copy(run.begin(), run.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    return bytes;
}

Bytes text(const std::string& characters)
{
    return {characters.begin(), characters.end()};
}

// The entry for the one device of a list, of which the members behind these are given.
struct Device {
    const char* list;
    ListCall call;
    std::size_t size;
};
const Device DISK_INFO{R"("disks": [{"id": 0, "slot": 0)", &MV_PD_GetHDInfo_Ext, 248};
const Device DISK_CONFIG{DISK_INFO.list, &MV_PD_GetConfig, 8};
const Device DRIVE_INFO{R"("virtualDisks": [{"id": 0)", &MV_LD_GetInfo, 312};
const Device DRIVE_CONFIG{DRIVE_INFO.list, &MV_LD_GetConfig, 24};

class RecordsTest : public SimTest
{
  protected:
    Bytes record(const Device& device, const std::string& members)
    {
        loadAdapter(device.list + (members.empty() ? "" : ", " + members) + "}]");
        Bytes bytes = list(device.call).entries;
        bytes.resize(device.size);
        return bytes;
    }
};

TEST_F(RecordsTest, MembersOfDevices)
{
    const std::string longest = "0123456789012345678901234567890123456789";
    const struct {
        const Device& device;
        std::string members;
        Runs runs;
    } cases[] = {
        {DISK_INFO, R"("model": ")" + longest + R"(", "serial": "S-1")", {{0x4c, text(longest + "S-1")}}},
        {DISK_INFO, R"("sasAddress": "hex:50 01 ff 00 a1")", {{0x30, {0x50, 1, 255, 0, 0xa1}}}},
        {DISK_INFO,
         R"("featureFlags": ["1.5G", "writeCache", "encryption"], "linkFlags": 255)",
         {{0x42, {255}}, {0x48, {0x14, 1}}}},
        {DISK_INFO, R"("sizeKB": 18446744073709551614)", {{0x90, {0xfe, 255, 255, 255, 255, 255, 255, 255}}}},
        {DISK_INFO, R"("sizeBytes": 2047)", {{0x90, {1, 0}}}},
        {DISK_INFO, R"("size": "1.92 TB")", {{0x90, {0xc0, 0x3a, 0xc2, 0x6f, 0}}}},
        {DISK_INFO, R"("size": "16383PiB")", {{0x90, {0, 0, 0, 0, 0, 0xff, 0x3f, 0}}}},
        {DISK_INFO,
         R"("raw": {"info": {"0": "aabb", "0x24": "ffff", "0xf7": "cc"}})",
         {{0x00, {0xaa, 0xbb}}, {0x24, {255, 255}}, {0xf7, {0xcc}}}},
        {DISK_CONFIG, R"("raw": {"config": {"5": "dd"}})", {{0x05, {0xdd}}}},
        {DRIVE_INFO, R"("raid": 10, "raw": {"info": {"0x137": "77"}})", {{0x06, {10}}, {0x137, {0x77}}}},
        {DRIVE_INFO, R"("status": "missing")", {{0x02, {2}}}},
        {DRIVE_CONFIG, R"("logicalDrive": 772)", {{0x04, {4, 3}}}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(record(row.device, row.members), with(record(row.device, ""), row.runs)) << row.members;
}

// The two calls for one disk keep the header that they came with, but for the count of entries.
TEST_F(RecordsTest, OneDisk)
{
    record(DISK_INFO, R"("freeKB": 72623859790382856, "raidStatus": ["spare", "checking", "foreign"],
                         "raw": {"raidStatus": {"0x17": "ee"}, "freeSpace": {"0x10": "ff"}})");
    const Bytes header = {0, 2, 0, 0, 1, 0, 0, 0, 0x91, 0, 0, 0, 0, 0, 0, 0x98};
    Bytes status = with(Bytes(24, 0xee), {{0, header}});
    EXPECT_EQ(MV_PD_GetHDRaidStatus(0, reinterpret_cast<_HD_RAID_Status_Request*>(status.data())), 0U);
    EXPECT_EQ(status, with(Bytes(24), {{0, header}, {0x06, {1}}, {0x14, {52}}, {0x17, {0xee}}}));

    Bytes space = with(Bytes(32, 0xee), {{0, header}});
    EXPECT_EQ(MV_PD_GetFreeSpaceInfo(0, reinterpret_cast<_HD_FreeSpaceInfo_Request*>(space.data())), 0U);
    EXPECT_EQ(space,
              with(Bytes(32), {{0, header}, {0x06, {1}}, {0x10, {0xff}}, {0x18, {8, 7, 6, 5, 4, 3, 2, 1}}}));
}

} // namespace
