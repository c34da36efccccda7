#include "common/DataRows.h"
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
    using Meaning = std::pair<unsigned int, unsigned int>; // state and status
    const auto tables = dataRows("tests/model/drive-codes.json");
    auto levels = tables.at(0).get<std::map<unsigned int, unsigned int>>();
    auto meanings = tables.at(1).get<std::map<unsigned int, Meaning>>();
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
