// Which entries a call answers with, and how it fails.
#include "mvsim/SimTest.h"

namespace
{

using testing::Each;

const std::string FIVE_DISKS =
    R"("disks": [{"id": 40, "slot": 0, "repeat": 3}, {"id": 90, "slot": 7, "gone": true},
    {"id": 50, "slot": 3, "repeat": 2}], "virtualDisks": [{"id": 3}, {"id": 8, "logicalDrive": 1}])";

using CallsTest = SimTest;

TEST_F(CallsTest, ListsAndSingleDevices)
{
    loadAdapter(FIVE_DISKS);
    const struct {
        std::uint8_t type;
        std::uint16_t start;
        std::uint16_t requested;
        unsigned int status;
        std::vector<unsigned int> ids; // of the disks returned
    } cases[] = {
        {1, 0, 5, 0, {40, 41, 42, 50, 51}},
        {1, 2, 2, 0, {42, 50}},
        {1, 65535, 65535, 0, {}},
        {2, 50, 9, 0, {50}},
        {2, 43, 1, 5, {}},
        {2, 90, 1, 5, {}},
        {3, 0, 5, 5, {}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(testing::Message() << +row.type << " from " << row.start << ", " << row.requested);
        const Answer infos = ask(&MV_PD_GetHDInfo_Ext, row.type, row.start, row.requested);
        EXPECT_EQ(infos.status, row.status);
        ASSERT_EQ(infos.returned, row.status == 0 ? row.ids.size() : 0x7777U)
            << "a refused call writes nothing";
        for (std::size_t i = 0; i < row.ids.size(); ++i) {
            EXPECT_EQ(infos.word(i * 248 + 0x24), row.ids[i]);
        }
        EXPECT_EQ(infos.entries[248 * row.ids.size()], 0xee);
    }
    EXPECT_EQ(diskFlags(1), 0x100 + MV_ERR_REQ_OUT_OF_RANGE) << "a slot is no id";
}

TEST_F(CallsTest, AdaptersThatAreNotThere)
{
    loadAdapter(FIVE_DISKS);
    LineLog log;
    mvsim_set_call_sink(&LineLog::sink, &log);
    _Event event{};
    unsigned int count = 0;
    list(&MV_LD_GetInfo, 5, 1);
    MV_Adapter_Get_OEM_Data(255, nullptr);
    MV_EVT_GetEvent(1, 50, &count, &event);
    MV_EVT_FlushEvent(255);
    EXPECT_THAT(log.lines(), Each(testing::EndsWith(" = 13")));
    EXPECT_EQ(log.lines().size(), 4U);
    EXPECT_EQ(mvsim_polls(), 0U) << "a refused call is no poll";
}

TEST_F(CallsTest, PlannedFailures)
{
    const std::pair<const char*, std::vector<unsigned int>> rules[] = {
        {R"({"status": 1, "from": 3})", {0, 0, 1, 1, 1}},
        {R"({"status": 1, "from": 2, "calls": 2})", {0, 1, 1, 0, 0}},
    };
    for (const auto& [rule, statuses] : rules) {
        loadAdapter(std::string(R"("fail": {"MV_Adapter_GetConfig": )") + rule + "}");
        for (const unsigned int status : statuses) {
            _Adapter_Config_V2 config{};
            EXPECT_EQ(MV_Adapter_GetConfig(0, nullptr, &config), status) << rule;
        }
    }
    loadAdapter(FIVE_DISKS + R"(, "fail": {"MV_PD_GetConfig": 1, "MV_LD_GetInfo": 256})",
                R"("fail": {"MV_API_Version": 4})");
    EXPECT_THAT(list(&MV_PD_GetConfig).entries, Each(0xee)) << "nothing is written";
    EXPECT_EQ(list(&MV_LD_GetInfo).returned, 2U) << "callers see the low byte alone, a success";
    EXPECT_EQ(MV_API_Version(), 4U);
}

TEST_F(CallsTest, AnswersOfAnotherLength)
{
    const struct {
        const char* rule;
        unsigned int claimed;
        std::size_t filled;
    } cases[] = {
        {R"({"count": 9})", 9, 5},
        {R"({"count": 0})", 0, 0},
        {R"({"entries": 2})", 2, 2},
        {R"({"entries": 2, "count": 65535})", 65535, 2},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.rule);
        loadAdapter(FIVE_DISKS + R"(, "answers": {"MV_PD_GetConfig": )" + row.rule + "}");
        const Answer answer = list(&MV_PD_GetConfig);
        EXPECT_EQ(answer.returned, row.claimed);
        EXPECT_TRUE(row.filled == 0 || answer.entries[row.filled * 8 - 1] != 0xee);
        EXPECT_EQ(answer.entries[row.filled * 8], 0xee);
        EXPECT_EQ(list(&MV_PD_GetConfig, 1).entries[8], 0xee) << "never more than were requested";
    }
}

} // namespace
