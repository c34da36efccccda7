#include "AttributeRows.h"
#include "model/CMarvelPhysicalDevice.h"
#include "mvlayer/Binders.h"
#include "support/CLogger.h"

using testing::ElementsAre;

namespace
{

using DiskTest = PluginTest;

constexpr char ROWS[] = R"(
m_pdObjType UNSIGNED_INTEGER 24576  m_pdGlobalCntrlNum UNSIGNED_INTEGER 24600
m_pdDevID UNSIGNED_INTEGER 24809  m_pdSlotNum UNSIGNED_INTEGER 24810  m_pdStatus UNSIGNED_INTEGER 24581
m_pdState UNSIGNED_INTEGER 24580  m_pdPowerStatus UNSIGNED_INTEGER 24940
m_pdBusProtocol UNSIGNED_INTEGER 24768  m_pdMedia UNSIGNED_INTEGER 24888  m_pdRRWE UNSIGNED_INTEGER 25093
m_pdRevision STDSTR 24624  m_pdDriverVer STDSTR 24741  m_pdModelNum STDSTR 25004
m_pdCapacity ULONG_ULONG_INT 24595  m_pdUsedRaidDiskSpace ULONG_ULONG_INT 24615
m_pdFreeRaidDiskSpace ULONG_ULONG_INT 24621  m_pdHotspare UNSIGNED_INTEGER 24673  m_pdVendorID STDSTR 24623
m_pdProductID STDSTR 24614  m_pdSerialNum STDSTR 24656  m_pdSectorSize UNSIGNED_INTEGER 25101
m_pdDevWriteCache UNSIGNED_INTEGER 24666  m_pdDiskCachePolicy UNSIGNED_INTEGER 24628
m_pdSASAddress STDSTR 24808  m_pdAttributeMask BINARY_DATA_TYPE 24577
m_pdMasterMethodMask BINARY_DATA_TYPE 24578  m_pdCurrentMethodMask BINARY_DATA_TYPE 24579
m_pdNexus NEXUS_TYPE 24692  m_pdVILNumber UNSIGNED_INTEGER 24583  m_pdCntrID UNSIGNED_INTEGER 24582
m_pdProductName STDSTR 24587  m_pdCapableSpeed UNSIGNED_INTEGER 24766
m_pdNegotiatedSpeed UNSIGNED_INTEGER 24765  m_pdWriteCacheSupport UNSIGNED_INTEGER 0
m_pdDiskGroupNum UNSIGNED_INTEGER 24616)";

TEST_F(DiskTest, KeepsItsAttributesByTheTable)
{
    checkAttributes<CPhysicalDevice>(ROWS, CPhysicalDevice::getPdAttribNameAndType(),
                                     [](CPhysicalDevice& disk) { return disk.getPdAttribValueMap(); });

    unsigned int number = 6;
    stg::AttribValMap given{{"m_pdFailurePredicted", &number}, {"m_pdEncryptionCap", &number}};
    CPhysicalDevice disk;
    disk = given;
    EXPECT_EQ(numbers(*disk.getPdAttribValueMap(), "m_pdFailurePredicted m_pdEncryptionCap"), "6 6 ");
    CPhysicalDevice copy(disk);
    EXPECT_EQ(numbers(*copy.getPdAttribValueMap(), "m_pdFailurePredicted m_pdEncryptionCap"), "- - ");
    EXPECT_TRUE(copy.getFailurePredicted() != 6 && copy.getEncryptionCap() != 6) << "left out of copies";
    EXPECT_EQ(copy.getCapacity() & copy.getUsedRaidDiskSpace() & copy.getFreeRaidDiskSpace(), 0xFFFFFFFFULL);
}

TEST_F(DiskTest, SaysSomeThingsPastTheLogger)
{
    {
        CPhysicalDevice disk;
        disk.setSlotNum(3);
        stg::lout << "begun, ";
        disk.clearMap();
        EXPECT_TRUE(disk.getPdAttribValueMap()->empty());
    }
    stg::lout << "ended" << '\n';
    const std::string at = "ZARNEK: CPhysicalDevice ";
    EXPECT_THAT(log(),
                ElementsAre(at + "clearMap Entry", at + "deleteFromMap Entry", at + "deleteFromMap Exit",
                            at + "clearMap Exit", at + "D-tor Entry", "begun, ended"));
}

// A disk and what it is filled from.
struct Filled : CMarvelPhysicalDevice {
    using CMarvelPhysicalDevice::operator=;
    _HD_Info info{};
    _HD_CONFIG config{};
    _HD_FreeSpaceInfo space{};
    stg::SInfoHelper_t helper;
    stg::QLVPDBinder_t binder{&info, &config, &helper, &space};

    const stg::AttribValMap& fill()
    {
        *this = static_cast<void*>(&binder);
        return *getPdAttribValueMap();
    }
};

TEST_F(DiskTest, TakesTheRecordsThatAreThere)
{
    CMarvelPhysicalDevice untold;
    untold = static_cast<void*>(nullptr);
    EXPECT_THAT(*untold.getPdAttribValueMap(), ElementsAre(testing::Key("m_pdNexus")));
    EXPECT_THAT(untold.getPdNexus(), ElementsAre(24600, 24810));

    Filled disk;
    put(disk.space, 0x08, 8, 0x400001);
    disk.binder = {nullptr, nullptr, nullptr, &disk.space};
    EXPECT_EQ(disk.fill().size(), 8U); // masks, type, layer, spaces, nexus
    EXPECT_EQ(disk.getFreeRaidDiskSpace(), 0x100000400ULL);
    EXPECT_EQ(disk.getUsedRaidDiskSpace(), 0xFFFFFFFFULL - 0x100000400ULL);

    disk.binder = {&disk.info, &disk.config, &disk.helper, &disk.space};
    disk.helper.globalCntrlNum = 101;
    disk.helper.cntrlId = 2;
    disk.helper.hdRaidStatus = 2;
    put(disk.info, 0x24, 2, 0xBEEF);
    put(disk.info, 0x90, 8, 0xFEDCBA9876543);
    put(disk.info, 0xa4, 4, 0x80001000);
    put(disk.config, 0x06, 2, 0xCAFE);
    put(disk.space, 0x08, 8, 0xFEDCBA9876540);
    const stg::AttribValMap& values = disk.fill();
    EXPECT_EQ(numbers(values, "m_pdAttributeMask m_pdMasterMethodMask m_pdCurrentMethodMask m_pdObjType "
                              "m_pdVILNumber m_pdGlobalCntrlNum m_pdCntrID m_pdState m_pdStatus m_pdDevID "
                              "m_pdSectorSize m_pdSlotNum m_pdCapableSpeed m_pdNegotiatedSpeed"),
              "0 0 0 772 9 101 2 4 2 48879 2147487744 51966 0 0 ");
    EXPECT_EQ(values.size(), 14U + 10U); // texts, spaces, nexus
    EXPECT_EQ(disk.getCapacity(), 0xFEDCBA9876543ULL << 10);
    EXPECT_EQ(disk.getUsedRaidDiskSpace(), 3ULL << 10);
    put(disk.space, 0x08, 8, 0xFEDCBA9876544);
    disk.fill();
    EXPECT_EQ(disk.getUsedRaidDiskSpace(), 0xFFFFFFFFFFFFFC00ULL);
}

TEST_F(DiskTest, DecodesItsCodes)
{
    struct Flags {
        unsigned int link, media, features, speed;
        std::string expected; // protocol, media, capable speed, write cache, encryption, negotiated speed
    };
    Filled reused;
    std::string last;
    for (const Flags& c : {Flags{0x00, 0xFE, 0xFFFFFA63, 0, "- - 0 - - 0 "},
                           {0xFA, 0x00, 1U << 2, 1, "- - 1536 - - 1536 "},
                           {0x04, 0x03, 0xCU | 1U << 8, 2, "8 2 3072 - 1 3072 "},
                           {0x05, 0x00, 0xCU | 1U << 7 | 1U << 4, 3, "7 - 6144 1 - 6144 "},
                           {0x01, 0x01, 1U << 10 | 1U << 7, 4, "7 2 12288 - - 12288 "},
                           {0x00, 0x00, 0x80000800, 5, "- - 0 - - 0 "}}) {
        Filled fresh;
        for (Filled* const disk : {&fresh, &reused}) {
            put(disk->info, 0x42, 1, c.link);
            put(disk->info, 0x48, 4, c.features);
            put(disk->info, 0xb8, 1, c.media);
            put(disk->config, 0x03, 1, c.speed);
            disk->fill();
        }
        const std::string names = "m_pdBusProtocol m_pdMedia m_pdCapableSpeed m_pdWriteCacheSupport "
                                  "m_pdEncryptionCap m_pdNegotiatedSpeed";
        EXPECT_EQ(numbers(*fresh.getPdAttribValueMap(), names), c.expected);
        last = numbers(*reused.getPdAttribValueMap(), names);
    }
    EXPECT_EQ(last, "7 2 0 1 1 0 ") << "flags that went away leave what they set";
    // Status flags to state and status.
    const std::map<unsigned int, std::string> meanings{
        {0xFF, "8 4 "}, {0x09, "8 4 "}, {0xF7, "1 2 "}, {0x21, "1 2 "}, {0xF6, "0 1 "}, {0x22, "0 1 "},
        {0xD6, "4 2 "}, {0x06, "4 2 "}, {0xD4, "0 1 "}, {0x10, "0 1 "}, {0xC0, "0 1 "}, {0x00, "0 1 "}};
    for (const auto& [flags, meaning] : meanings) {
        reused.helper.hdRaidStatus = flags;
        EXPECT_EQ(numbers(reused.fill(), "m_pdState m_pdStatus"), meaning) << flags;
    }
    for (const unsigned int flags : {0xF0U, 0xD4U, 0xD0U, 0xC0U}) {
        unsigned int state = 77, status = 78;
        EXPECT_EQ(reused.mapPDStateAndStatus(flags, &state, &status), 0U);
        EXPECT_EQ(state, flags == 0xD0 ? 77U : 0U) << "only these tell no state";
        EXPECT_EQ(status, 1U);
    }
}

TEST_F(DiskTest, ReadsTextsOfAnyLength)
{
    using namespace std::string_literals;
    const std::string forty = " MODEL TEXT OF EXACTLY FORTY CHARACTERS ", twenty = "12345678901234567890";
    const std::string model = forty.substr(1, 38);
    // Revision, serial, model and SAS address: in the record, and as they are read.
    const std::pair<Lines, Lines> cases[] = {
        {{" 1.2345 ", "  SERIAL OF TWENTY\t ", forty, "ADDRESS8"},
         {" 1.2345 ", "SERIAL OF TWENTY", model, "ADDRESS8" + forty.substr(8)}},
        {{"REVISION", twenty, "M\0"s, "ADDRESS8"}, {"REVISION", twenty, "M", "ADDRESS8"}},
        {{"1\0"s, std::string(20, ' '), "MODEL 1234\0"s, "ADDRESS8"}, {"1", "", "MODEL 1234", "ADDRESS834"}},
        {{"\0"s, " \tS 1\t \0"s, forty, "ADDRESS\0"s}, {"", "S 1", model, "ADDRESS"}}};
    for (const auto& [bytes, texts] : cases) {
        Filled disk;
        std::memset(&disk.info, '~', sizeof disk.info); // nothing there ends a text by chance
        put(disk.info, 0x88, bytes[0]);
        put(disk.info, 0x74, bytes[1]);
        put(disk.info, 0x4c, bytes[2]);
        put(disk.info, 0x30, bytes[3]);
        EXPECT_EQ(disk.fill().count("m_pdSerialNum"), 1U);
        EXPECT_EQ((Lines{disk.getRevision(), disk.getSerialNum(), disk.getModelNum(), disk.getSASAddress()}),
                  texts);
        EXPECT_EQ(disk.getProductID() + disk.getVendorID(), texts[2] + "VORN");
    }
}

} // namespace
