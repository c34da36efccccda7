// Which entries a call answers with, and how it fails.
#include "mvsim/SimTest.h"

namespace
{

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
        {MV_REQUEST_LIST, 0, 5, 0, {40, 41, 42, 50, 51}},
        {MV_REQUEST_LIST, 2, 2, 0, {42, 50}},
        {MV_REQUEST_LIST, 65535, 65535, 0, {}},
        {MV_REQUEST_ONE_DEVICE, 50, 9, 0, {50}},
        {MV_REQUEST_ONE_DEVICE, 43, 1, MV_ERR_REQ_OUT_OF_RANGE, {}},
        {MV_REQUEST_ONE_DEVICE, 90, 1, MV_ERR_REQ_OUT_OF_RANGE, {}},
        {3, 0, 5, MV_ERR_REQ_OUT_OF_RANGE, {}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(testing::Message() << +row.type << " from " << row.start << ", " << row.requested);
        const Answer infos = ask(&MV_PD_GetHDInfo_Ext, row.type, row.start, row.requested);
        EXPECT_EQ(infos.status, row.status);
        ASSERT_EQ(infos.returned, row.status == 0 ? row.ids.size() : 0x7777U)
            << "a refused call writes nothing";
        for (std::size_t i = 0; i < row.ids.size(); ++i)
            EXPECT_EQ(infos.entry<_HD_Info>(i).HD_Id, row.ids[i]);
        EXPECT_TRUE(infos.isUntouchedFrom(row.ids.size() * sizeof(_HD_Info)));
    }
    EXPECT_EQ(diskStatus(1), std::nullopt) << "a slot is no id";
    _HD_RAID_Status_Request every{};
    every.Header = {0, MV_REQUEST_LIST, 0, 1, 0, {}};
    EXPECT_EQ(MV_PD_GetHDRaidStatus(0, &every), MV_ERR_REQ_OUT_OF_RANGE) << "there is room for one";

    _Event event{};
    unsigned int count = 0;
    EXPECT_EQ(list(&MV_LD_GetInfo, 5, 1).status, MV_ERR_INVALID_ADAPTER_ID);
    EXPECT_EQ(MV_EVT_GetEvent(255, 50, &count, &event), MV_ERR_INVALID_ADAPTER_ID);
}

TEST_F(CallsTest, PlannedFailures)
{
    loadAdapter(R"("fail": {"MV_Adapter_GetConfig": {"status": 1, "from": 2, "calls": 2}})");
    for (const unsigned int status : {0U, 1U, 1U, 0U, 0U})
        EXPECT_EQ(configStatus(), status);
    loadAdapter(FIVE_DISKS + R"(, "fail": {"MV_PD_GetConfig": 1, "MV_LD_GetInfo": 256})",
                R"("fail": {"MV_API_Version": 4})");
    EXPECT_TRUE(list(&MV_PD_GetConfig).isUntouchedFrom(0));
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
        loadAdapter(FIVE_DISKS + R"(, "answers": {"MV_PD_GetConfig": )" + row.rule + "}");
        const Answer answer = list(&MV_PD_GetConfig);
        EXPECT_EQ(answer.returned, row.claimed) << row.rule;
        EXPECT_TRUE(answer.isUntouchedFrom(row.filled * sizeof(_HD_CONFIG))) << row.rule;
        EXPECT_FALSE(row.filled != 0 && answer.isUntouchedFrom(row.filled * sizeof(_HD_CONFIG) - 1))
            << row.rule;
    }
}

} // namespace
