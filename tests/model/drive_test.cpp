#include "common/PluginTest.h"
#include "model/CMarvelVirtualDevice.h"
#include "model/Filled.h"
#include "support/Status.h"

#include <sdo.h>

#include <cstring>
#include <map>

using testing::ElementsAre;

namespace
{

constexpr unsigned int UNSET = stg::NUMBER_UNKNOWN;

using DriveTest = PluginTest;

struct Drive : Filled<CMarvelVirtualDevice, stg::QLVVDBinder_t> {
    Drive() { binder = {&info, nullptr, &helper}; }
    _LD_Info info{};
    _LD_Config config{};
};

TEST_F(DriveTest, TakesTheRecordsThatAreThere)
{
    CMarvelVirtualDevice untold;
    untold = static_cast<void*>(nullptr);
    EXPECT_THAT(*untold.getAttribValueMap(), ElementsAre(testing::Key("m_VdNexus")));

    Drive drive;
    drive.config.LogicalDriveNumber = 0xCAFE;
    drive.binder = {nullptr, &drive.config, nullptr};
    drive.fill();
    SdoValues values{
        {SSPROP_ATTRIBUTEMASK_U32, 0},
        {SSPROP_MASTERMETHODMASK_U32, 0},
        {SSPROP_CURRENTMETHODMASK_U32, 0},
        {SSPROP_OBJTYPE_U32, SDO_OBJTYPE_VIRTUAL_DISK},
        {SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER},
        {SSPROP_LOGICALDRIVENUM_U32, 0xCAFE},
        {SSPROP_NEXUS_U32, std::vector{SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_LOGICALDRIVENUM_U32}}};
    EXPECT_EQ(drive.sent(), values);

    drive.binder = {&drive.info, nullptr, &drive.helper};
    drive.helper.globalCntrlNum = 101;
    drive.helper.cntrlId = 2;
    std::memset(&drive.info, 0xFF, sizeof drive.info);
    drive.info.LD_Id = 0xBEEF;
    drive.info.StripeSize = 0x8001;
    drive.info.SizeKB = 0xFEDCBA9876543;
    put(drive.info.LDName, std::string("\t A name \0", 10));
    drive.fill();
    values.insert({{SSPROP_GLOBALCONTROLLERNUM_U32, 101},
                   {SSPROP_CONTROLLERID_U32, 2},
                   {SSPROP_DEVICEID_U32, 0xBEEF},
                   {SSPROP_STRIPEBLOCKSIZE_U32, 2 * 0x8001},
                   {SSPROP_NAME_ASTRING, "\t A name "},
                   {SSPROP_SIZE_U64, 0xFEDCBA9876543ULL << 10},
                   {SSPROP_STATE_U32, SDO_STATE_UNSTATED},
                   {SSPROP_STATUS_U32, SDO_STATUS_UNKNOWN},
                   {SSPROP_RAIDMODE_U32, SDO_RAID_NONE},
                   {SSPROP_VDDISKCACHEPOLICY_U32, SDO_VDDISKCACHE_ON},
                   {SSPROP_WRITEPOLICY_U32, SDO_WRITEPOLICY_BACK}});
    EXPECT_EQ(drive.sent(), values);
}

TEST_F(DriveTest, DecodesEveryCode)
{
    std::map<unsigned int, unsigned int> levels{{0x00, 2},      {0x01, 4},     {0x05, 64},     {0x06, 128},
                                                {0x0F, 16384},  {0x10, 512},   {0x11, 524288}, {0x50, 2048},
                                                {0x60, 262144}, {0x66, 16384}, {0xFF, 16384}};
    using Meaning = std::pair<unsigned int, unsigned int>; // state and status
    std::map<unsigned int, Meaning> meanings{{0, {1, 2}}, {1, {32, 3}},       {3, {1048576, 4}},
                                             {4, {8, 4}}, {5, {0, 3}},        {6, {0, 3}},
                                             {7, {0, 3}}, {10, {8388608, 2}}, {15, {268435456, 2}}};
    for (const unsigned int code : {2U, 8U, 9U, 11U, 12U, 13U, 14U, 255U})
        meanings[code] = {0, 1};
    for (unsigned int code = 0; code < 256; ++code) {
        SCOPED_TRACE(code);
        Drive drive;
        drive.info.LDStatus = drive.info.RaidMode = drive.info.CacheFlags = static_cast<std::uint8_t>(code);
        drive.fill();
        EXPECT_EQ(drive.getVDRaidMode(), levels.try_emplace(code, UNSET).first->second);
        EXPECT_EQ(Meaning(drive.getVDState(), drive.getVDStatus()), meanings[code]);
        const bool cached = (code & 0x0BU) != 0;
        EXPECT_EQ(drive.getDiskCachePolicy(), cached ? 4U : 2U);
        EXPECT_EQ(drive.getWritePolicy(), cached ? 8U : 4U);
    }
}

} // namespace
