#include "common/PluginTest.h"
#include "model/CMarvelVirtualDevice.h"
#include "model/Filled.h"
#include "support/Status.h"

#include <map>

namespace
{

constexpr unsigned int UNSET = stg::NUMBER_UNKNOWN;

using DriveTest = PluginTest;

struct Drive : Filled<CMarvelVirtualDevice, stg::QLVVDBinder_t> {
    Drive() { binder = {&info, nullptr, &helper}; }
    _LD_Info info{};
};

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
        drive.info.StripeSize = 0xFFFF;
        drive.fill();
        EXPECT_EQ(drive.getVDStripeBlockSize(), 131070U);
        EXPECT_EQ(drive.getVDRaidMode(), levels.try_emplace(code, UNSET).first->second);
        EXPECT_EQ(Meaning(drive.getVDState(), drive.getVDStatus()), meanings[code]);
        const bool cached = (code & 0x0BU) != 0;
        EXPECT_EQ(drive.getDiskCachePolicy(), cached ? 4U : 2U);
        EXPECT_EQ(drive.getWritePolicy(), cached ? 8U : 4U);
    }
}

} // namespace
