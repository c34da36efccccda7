// Which entries a call answers with, what it says of them, and how it fails.
#include "mvsim/SimTest.h"

namespace
{

using testing::Each;
using testing::ElementsAre;

const char* const kFiveDisks =
    R"("disks": [{"id": 40, "slot": 0, "repeat": 3}, {"id": 90, "slot": 7, "gone": true},
    {"id": 50, "slot": 3, "repeat": 2}], "virtualDisks": [{"id": 3}, {"id": 8, "logicalDrive": 1}])";

class CallsTest : public SimTest
{
};

TEST_F(CallsTest, ListWindows)
{
    loadAdapter(kFiveDisks);
    struct Case {
        std::uint8_t type;
        std::uint16_t start;
        std::uint16_t requested;
        unsigned int status;
        std::vector<unsigned int> ids; // of the disks returned
    };
    const Case cases[] = {
        {1, 0, 20, 0, {40, 41, 42, 50, 51}},
        {1, 0, 5, 0, {40, 41, 42, 50, 51}},
        {1, 0, 3, 0, {40, 41, 42}},
        {1, 2, 2, 0, {42, 50}},
        {1, 4, 20, 0, {51}},
        {1, 5, 20, 0, {}},
        {1, 65535, 65535, 0, {}},
        {1, 0, 0, 0, {}},
        {2, 50, 1, 0, {50}},
        {2, 50, 9, 0, {50}},
        {2, 50, 0, 0, {}},
        {2, 43, 1, 5, {}},
        {2, 90, 1, 5, {}},
        {0, 0, 5, 5, {}},
        {3, 0, 5, 5, {}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(testing::Message() << +row.type << " from " << row.start << ", " << row.requested);
        const Answer infos = ask(&MV_PD_GetHDInfo_Ext, row.type, row.start, row.requested);
        const Answer configs = ask(&MV_PD_GetConfig, row.type, row.start, row.requested);
        EXPECT_EQ(infos.status, row.status);
        EXPECT_EQ(configs.status, row.status);
        if (row.status != 0) {
            EXPECT_EQ(infos.returned, 0x7777U) << "a refused call writes nothing";
            EXPECT_THAT(infos.entries, Each(0xee));
            continue;
        }
        ASSERT_EQ(infos.returned, row.ids.size());
        ASSERT_EQ(configs.returned, row.ids.size());
        for (std::size_t i = 0; i < row.ids.size(); ++i) {
            EXPECT_EQ(infos.word(i * 248 + 0x24), row.ids[i]);
            // Both lists run in step: slots count up with the ids.
            EXPECT_EQ(configs.word(i * 8 + 0x06), row.ids[i] < 50 ? row.ids[i] - 40 : row.ids[i] - 47);
        }
        const Bytes behind(infos.entries.begin() + static_cast<std::ptrdiff_t>(248 * row.ids.size()),
                           infos.entries.end());
        EXPECT_THAT(behind, Each(0xee));
    }
    const Answer drive = ask(&MV_LD_GetConfig, 2, 8, 1);
    EXPECT_EQ(drive.returned, 1U);
    EXPECT_EQ(drive.word(0x04), 1U);
}

TEST_F(CallsTest, OneDiskRequests)
{
    loadAdapter(
        R"("disks": [{"id": 40, "slot": 0, "raidStatus": "spare"}, {"id": 41, "slot": 1, "raidStatus": 9}])");
    EXPECT_EQ(diskFlags(41), 9U);
    EXPECT_EQ(diskFlags(40), 4U);
    EXPECT_EQ(diskFlags(1), 0x100 + MV_ERR_REQ_OUT_OF_RANGE) << "a slot is no id";
    _HD_FreeSpaceInfo_Request request{};
    request.Header.RequestType = MV_REQUEST_LIST;
    request.Header.NumRequested = 1;
    EXPECT_EQ(MV_PD_GetFreeSpaceInfo(0, &request), MV_ERR_REQ_OUT_OF_RANGE);
}

TEST_F(CallsTest, AdaptersAndPointersThatAreNotThere)
{
    loadAdapter(kFiveDisks);
    EXPECT_EQ(MV_Adapter_GetCount(), 1U);
    _Adapter_OEM_Data oem{72, {}, 0, {}, 0, 0, 0, 0, {}};
    _Adapter_Info info{};
    _Event event{};
    unsigned int count = 0;
    for (const unsigned char adapter : {std::uint8_t{1}, std::uint8_t{255}}) {
        EXPECT_EQ(list(&MV_LD_GetInfo, 5, adapter).status, MV_ERR_INVALID_ADAPTER_ID);
        EXPECT_EQ(MV_Adapter_GetInfo(adapter, &count, &info), MV_ERR_INVALID_ADAPTER_ID);
        EXPECT_EQ(MV_Adapter_Get_OEM_Data(adapter, &oem), MV_ERR_INVALID_ADAPTER_ID);
        EXPECT_EQ(MV_EVT_GetEvent(adapter, 50, &count, &event), MV_ERR_INVALID_ADAPTER_ID);
        EXPECT_EQ(MV_EVT_FlushEvent(adapter), MV_ERR_INVALID_ADAPTER_ID);
        EXPECT_EQ(MV_PD_GET_SMART_INFO(adapter, nullptr), MV_ERR_INVALID_ADAPTER_ID);
    }
    EXPECT_EQ(MV_Adapter_GetInfo(0, nullptr, nullptr), MV_ERR_FAIL);
    EXPECT_EQ(MV_Adapter_GetConfig(0, nullptr, nullptr), MV_ERR_FAIL);
    EXPECT_EQ(MV_Adapter_Get_OEM_Data(0, nullptr), MV_ERR_FAIL);
    EXPECT_EQ(MV_PD_GetHDInfo_Ext(0, nullptr), MV_ERR_FAIL);
    EXPECT_EQ(MV_PD_GetHDRaidStatus(0, nullptr), MV_ERR_FAIL);
    EXPECT_EQ(MV_PD_GetFreeSpaceInfo(0, nullptr), MV_ERR_FAIL);
    EXPECT_EQ(MV_EVT_GetEvent(0, 50, &count, nullptr), MV_ERR_FAIL);
    EXPECT_EQ(MV_EVT_GetEvent(0, 50, nullptr, &event), MV_ERR_FAIL);
    EXPECT_EQ(mvsim_polls(), 0U) << "a refused call is no poll";
    EXPECT_EQ(MV_PassThrough_ATA(0, nullptr), MV_ERR_FAIL);
}

// The results of `calls` calls in a row.
std::vector<unsigned int> results(unsigned int calls)
{
    std::vector<unsigned int> all;
    for (unsigned int i = 0; i < calls; ++i) {
        _Adapter_Config_V2 config{};
        all.push_back(MV_Adapter_GetConfig(0, nullptr, &config));
    }
    return all;
}

TEST_F(CallsTest, PlannedFailures)
{
    loadAdapter(R"("fail": {"MV_Adapter_GetConfig": 187})");
    EXPECT_THAT(results(3), ElementsAre(187, 187, 187));
    loadAdapter(R"("fail": {"MV_Adapter_GetConfig": {"status": 1, "from": 3}})");
    EXPECT_THAT(results(5), ElementsAre(0, 0, 1, 1, 1));
    loadAdapter(R"("fail": {"MV_Adapter_GetConfig": {"status": 1, "from": 2, "calls": 2}})");
    EXPECT_THAT(results(5), ElementsAre(0, 1, 1, 0, 0));

    // Nothing is written, unless it is to be; a result with a low byte of 0 is a success.
    loadAdapter(std::string(kFiveDisks) + R"(, "fail": {"MV_PD_GetConfig": 1, "MV_LD_GetInfo": 256,
        "MV_PD_GetHDInfo_Ext": {"status": 187, "filled": true}, "MV_PassThrough_ATA": 9})");
    EXPECT_THAT(list(&MV_PD_GetConfig).entries, Each(0xee));
    const Answer filled = list(&MV_PD_GetHDInfo_Ext);
    EXPECT_EQ(filled.status, 187U);
    EXPECT_EQ(filled.returned, 5U);
    EXPECT_EQ(filled.word(0x24), 40U);
    const Answer wide = list(&MV_LD_GetInfo);
    EXPECT_EQ(wide.status, 256U);
    EXPECT_EQ(wide.returned, 2U);
    EXPECT_EQ(MV_PassThrough_ATA(0, nullptr), 9U);

    loadAdapter(
        "",
        R"("fail": {"MV_API_Initialize": 3, "MV_API_Version": 4}, "answers": {"MV_Adapter_GetCount": {"count": 258}})");
    EXPECT_EQ(MV_API_Initialize(), 3U);
    EXPECT_EQ(MV_API_Version(), 4U);
    EXPECT_EQ(MV_API_Finalize(), 0U);
    EXPECT_EQ(MV_Adapter_GetCount(), 258U);
}

TEST_F(CallsTest, AnswersOfAnotherLength)
{
    struct Case {
        const char* rule;
        unsigned int claimed;
        std::size_t filled;
    };
    const Case cases[] = {
        {R"({"count": 3})", 3, 3},   {R"({"count": 9})", 9, 5},
        {R"({"entries": 2})", 2, 2}, {R"({"entries": 2, "count": 65535})", 65535, 2},
        {R"({"entries": 9})", 5, 5}, {R"({"count": 0})", 0, 0},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.rule);
        loadAdapter(std::string(kFiveDisks) + R"(, "answers": {"MV_PD_GetConfig": )" + row.rule + "}");
        const Answer answer = list(&MV_PD_GetConfig);
        EXPECT_EQ(answer.returned, row.claimed);
        if (row.filled != 0) {
            EXPECT_NE(answer.entries[row.filled * 8 - 1], 0xee);
        }
        EXPECT_EQ(answer.entries[row.filled * 8], 0xee);
        EXPECT_EQ(list(&MV_PD_GetConfig, 1).entries[8], 0xee) << "never more than were requested";
    }
    loadAdapter(kFiveDisks +
                std::string(R"(, "answers": {"MV_PD_GetHDRaidStatus": {"entries": 0, "count": 2}})"));
    _HD_RAID_Status_Request request{};
    request.Header.RequestType = MV_REQUEST_ONE_DEVICE;
    request.Header.StartIndexOrId = 40;
    request.Header.NumRequested = 1;
    request.RaidStatusFlags = 0xee;
    EXPECT_EQ(MV_PD_GetHDRaidStatus(0, &request), 0U);
    EXPECT_EQ(request.Header.NumReturned, 2U);
    EXPECT_EQ(request.RaidStatusFlags, 0xee);

    loadAdapter(R"("answers": {"MV_EVT_GetEvent": {"count": 51}})",
                R"("timeline": [{"poll": 1, "events": [{"code": "diskFailed", "repeat": 2}]}])");
    std::array<_Event, 50> events{};
    unsigned int count = 0;
    EXPECT_EQ(MV_EVT_GetEvent(0, 50, &count, events.data()), 0U);
    EXPECT_EQ(count, 51U);
    EXPECT_EQ(events[1].EventSequence, 2U);
    EXPECT_EQ(events[2].EventSequence, 0U);
}

TEST_F(CallsTest, CallLines)
{
    loadAdapter(std::string(kFiveDisks) + R"(, "fail": {"MV_LD_GetConfig": 187})",
                R"("timeline": [{"poll": 1, "events": [{"code": "diskFailed"}]}])");
    LineLog log;
    mvsim_set_call_sink(&LineLog::sink, &log);
    MV_API_Initialize();
    MV_Adapter_GetCount();
    _Adapter_Info info{};
    MV_Adapter_GetInfo(0, nullptr, &info);
    list(&MV_PD_GetHDInfo_Ext, 36);
    ask(&MV_PD_GetConfig, 2, 51, 1);
    ask(&MV_LD_GetInfo, 7, 0, 1);
    list(&MV_LD_GetConfig, 5);
    MV_PD_GetHDRaidStatus(0, nullptr);
    diskFlags(50);
    poll();
    MV_EVT_FlushEvent(3);
    MV_API_Finalize();
    mvsim_set_call_sink(nullptr, nullptr);
    MV_API_Finalize();
    EXPECT_THAT(
        log.lines(),
        ElementsAre("MV_API_Initialize() = 0", "MV_Adapter_GetCount() = 1", "MV_Adapter_GetInfo(0) = 0",
                    "MV_PD_GetHDInfo_Ext(0, list from 0, 36) = 0, 5 entries",
                    "MV_PD_GetConfig(0, device 51) = 0, 1 entry", "MV_LD_GetInfo(0, request type 7) = 5",
                    "MV_LD_GetConfig(0, list from 0, 5) = 187", "MV_PD_GetHDRaidStatus(0, null) = 1",
                    "MV_PD_GetHDRaidStatus(0, device 50) = 0, 1 entry",
                    "MV_EVT_GetEvent(0, at most 50) = 0, 1 event", "MV_EVT_FlushEvent(3) = 13",
                    "MV_API_Finalize() = 0"));
}

} // namespace
