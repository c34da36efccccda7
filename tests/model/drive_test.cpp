#include "AttributeRows.h"
#include "model/CMarvelVirtualDevice.h"
#include "mvlayer/Binders.h"

using testing::ElementsAre;

namespace
{

using DriveTest = PluginTest;

constexpr char ROWS[] = R"(
m_VdObjType UNSIGNED_INTEGER 24576  m_VdCntrlID UNSIGNED_INTEGER 24582
m_VdGlobalCntrlNum UNSIGNED_INTEGER 24600  m_VdVILNumber UNSIGNED_INTEGER 24583
m_VdBusProtocol UNSIGNED_INTEGER 24768  m_VdMedia UNSIGNED_INTEGER 24888
m_VdVendorID UNSIGNED_INTEGER 24583  m_VdState UNSIGNED_INTEGER 24580
m_VdStripeBlockSize UNSIGNED_INTEGER 24632  m_VdSectorSize UNSIGNED_INTEGER 25101
m_VdPdCount UNSIGNED_INTEGER 0  m_VdRaidDiskSpace UNSIGNED_INTEGER 0
m_VdDiskCachePolicy UNSIGNED_INTEGER 24860  m_VdWritePolicy UNSIGNED_INTEGER 24627
m_VdReadPolicy UNSIGNED_INTEGER 24626  m_VdDevID UNSIGNED_INTEGER 24809
m_VdLogicalDriveNum UNSIGNED_INTEGER 24629  m_VdAttributeMask BINARY_DATA_TYPE 24577
m_VdMasterMethodMask BINARY_DATA_TYPE 24578  m_VdCurrentMethodMask BINARY_DATA_TYPE 24579
m_VdStatus UNSIGNED_INTEGER 24581  m_VdRaidMode UNSIGNED_INTEGER 24631  m_VdBlockCount USHORT_INT 0
m_VdName STDSTR 24587  m_VdSize ULONG_ULONG_INT 24595  m_VdAutoRebuildOn BOOL_TYPE 0
m_VdProductName STDSTR 24826  m_PdInVdList VD_MEMBER_TYPE 0  m_VdNexus NEXUS_TYPE 24692)";

TEST_F(DriveTest, KeepsItsAttributesByTheTable)
{
    checkAttributes<CVirtualDevice>(ROWS, CVirtualDevice::getAttribNameAndType(),
                                    [](CVirtualDevice& drive) { return drive.getAttribValueMap(); });
    EXPECT_EQ(CVirtualDevice().getVDSize(), 0xFFFFFFFFULL);
    EXPECT_EQ(CVirtualDevice().getVDBlockCount(), 65535);
}

// A virtual disk and what it is filled from.
struct Filled : CMarvelVirtualDevice {
    using CMarvelVirtualDevice::operator=;
    _LD_Info info{};
    _LD_Config config{};
    stg::SInfoHelper_t helper;
    stg::QLVVDBinder_t binder{&info, &config, &helper};

    const stg::AttribValMap& fill()
    {
        *this = static_cast<void*>(&binder);
        return *getAttribValueMap();
    }
};

TEST_F(DriveTest, TakesTheRecordsThatAreThere)
{
    CMarvelVirtualDevice untold;
    untold = static_cast<void*>(nullptr);
    EXPECT_THAT(*untold.getAttribValueMap(), ElementsAre(testing::Key("m_VdNexus")));
    EXPECT_THAT(untold.getVDNexus(), ElementsAre(24600, 24629));

    Filled drive;
    put(drive.config, 0x04, 2, 0xCAFE);
    drive.binder = {nullptr, &drive.config, nullptr};
    EXPECT_EQ(drive.fill().size(), 7U); // masks, type, layer, number, nexus
    EXPECT_EQ(drive.getLogicalDriveNum(), 0xCAFEU);

    drive.binder = {&drive.info, nullptr, &drive.helper};
    drive.helper.globalCntrlNum = 101;
    drive.helper.cntrlId = 2;
    std::memset(&drive.info, 0xFF, sizeof drive.info);
    put(drive.info, 0x00, 2, 0xBEEF);
    put(drive.info, 0x04, 2, 0x8001);
    put(drive.info, 0x18, 8, 0xFEDCBA9876543);
    put(drive.info, 0x20, std::string("\t A name \0", 10));
    const stg::AttribValMap& values = drive.fill();
    EXPECT_EQ(numbers(values, "m_VdAttributeMask m_VdMasterMethodMask m_VdCurrentMethodMask m_VdObjType "
                              "m_VdVILNumber m_VdGlobalCntrlNum m_VdCntrlID m_VdDevID m_VdStripeBlockSize "
                              "m_VdState m_VdStatus m_VdRaidMode m_VdDiskCachePolicy m_VdWritePolicy "
                              "m_VdLogicalDriveNum"),
              "0 0 0 773 9 101 2 48879 65538 0 1 16384 4 8 51966 ");
    EXPECT_EQ(values.size(), 15U + 3U); // name, size, nexus
    EXPECT_EQ(drive.getVDName(), "\t A name ");
    EXPECT_EQ(drive.getVDSize(), 0xFEDCBA9876543ULL << 10);
}

TEST_F(DriveTest, DecodesEveryCode)
{
    std::map<unsigned int, std::string> levels{
        {0x00, "2"},      {0x01, "4"},    {0x05, "64"},     {0x06, "128"},   {0x0F, "16384"}, {0x10, "512"},
        {0x11, "524288"}, {0x50, "2048"}, {0x60, "262144"}, {0x66, "16384"}, {0xFF, "16384"}};
    std::map<unsigned int, std::string> states{{0, "1 2"}, {1, "32 3"},       {3, "1048576 4"},
                                               {4, "8 4"}, {5, "0 3"},        {6, "0 3"},
                                               {7, "0 3"}, {10, "8388608 2"}, {15, "268435456 2"}};
    for (const unsigned int code : {2U, 8U, 9U, 11U, 12U, 13U, 14U, 255U})
        states[code] = "0 1";
    Filled reused;
    std::string level = "4294967295";
    for (unsigned int code = 0; code < 256; ++code) {
        Filled fresh;
        for (Filled* const drive : {&fresh, &reused}) {
            for (const std::size_t field : {0x02U, 0x06U, 0x08U})
                put(drive->info, field, 1, code);
            clear();
            drive->fill();
        }
        level = levels.try_emplace(code, "-").first->second == "-" ? level : levels[code];
        const std::string policies = (code & 0x0BU) != 0 ? " 4 8 " : " 2 4 ";
        EXPECT_EQ(numbers(*fresh.getAttribValueMap(), "m_VdRaidMode m_VdState m_VdStatus m_VdDiskCachePolicy "
                                                      "m_VdWritePolicy"),
                  levels[code] + ' ' + states.try_emplace(code, "0 0").first->second + policies)
            << code;
        EXPECT_THAT(messages(), ElementsAre("ZARNEK:CVirtualDevice::setVDRaidMode(): getRaidMode " + level));
        EXPECT_THAT(log(), testing::IsSupersetOf({"ZARNEK: CMarvelVirtualDevice:setVDMode ENTRY ",
                                                  "ZARNEK: CMarvelVirtualDevice:setVDMode EXIT "}));
    }
    unsigned int state = 77, status = 78;
    EXPECT_EQ(reused.mapVDStateAndStatus(16, &state, &status), 0U);
    EXPECT_EQ(state * 100 + status, 7778U) << "a code that tells nothing";
}

} // namespace
