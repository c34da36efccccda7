#include "common/PluginTest.h"
#include "model/CMarvelPhysicalDevice.h"
#include "model/Filled.h"
#include "support/Status.h"

#include <cstring>

namespace
{

constexpr unsigned int UNSET = stg::NUMBER_UNKNOWN;

using DiskTest = PluginTest;

struct Disk : Filled<CMarvelPhysicalDevice, stg::QLVPDBinder_t> {
    Disk() { binder = {&info, &config, &helper, &space}; }
    _HD_Info info{};
    _HD_CONFIG config{};
    _HD_FreeSpaceInfo space{};
};

TEST_F(DiskTest, DecodesItsCodes)
{
    struct Case {
        std::uint8_t linkFlags, mediaFlags, linkSpeed;
        std::uint32_t featureFlags;
        unsigned int protocol, media, capableSpeed, speed, writeCache, encryption;
    };
    Disk reused;
    for (const Case& c : {Case{0, 0xFE, 0, 0xFFFFFA63, UNSET, UNSET, 0, 0, UNSET, UNSET},
                          {0xFA, 0, 1, 0x004, UNSET, UNSET, 1536, 1536, UNSET, UNSET},
                          {0x04, 0x03, 2, 0x10C, 8, 2, 3072, 3072, UNSET, 1},
                          {0x05, 0, 3, 0x09C, 7, UNSET, 6144, 6144, 1, UNSET},
                          {0x01, 0x01, 4, 0x480, 7, 2, 12288, 12288, UNSET, UNSET},
                          {0, 0, 5, 0x80000800, UNSET, UNSET, 0, 0, UNSET, UNSET}}) {
        Disk fresh;
        for (Disk* const disk : {&fresh, &reused}) {
            disk->info.LinkFlags = c.linkFlags;
            disk->info.FeatureFlags = c.featureFlags;
            disk->info.MediaFlags = c.mediaFlags;
            disk->config.LinkSpeed = c.linkSpeed;
            disk->fill();
            EXPECT_EQ(disk->getCapableSpeed(), c.capableSpeed);
            EXPECT_EQ(disk->getNegotiatedSpeed(), c.speed);
        }
        EXPECT_EQ(fresh.getBusProtocol(), c.protocol);
        EXPECT_EQ(fresh.getMedia(), c.media);
        EXPECT_EQ(fresh.getWriteCacheSupport(), c.writeCache);
        EXPECT_EQ(fresh.getEncryptionCap(), c.encryption);
    }
    // Flags that went away leave what they set.
    EXPECT_EQ(reused.getBusProtocol(), 7U);
    EXPECT_EQ(reused.getMedia(), 2U);
    EXPECT_EQ(reused.getWriteCacheSupport() + reused.getEncryptionCap(), 2U);

    struct Meaning {
        unsigned int flags, state, status;
    };
    for (const Meaning& m :
         {Meaning{0xFF, 8, 4}, Meaning{0x09, 8, 4}, Meaning{0xF7, 1, 2}, Meaning{0x21, 1, 2},
          Meaning{0xF6, 0, 1}, Meaning{0x22, 0, 1}, Meaning{0xD6, 4, 2}, Meaning{0x06, 4, 2},
          Meaning{0xD4, 0, 1}, Meaning{0x10, 0, 1}, Meaning{0xC0, 0, 1}, Meaning{0x00, 0, 1}}) {
        reused.helper.hdRaidStatus = m.flags;
        reused.fill();
        EXPECT_EQ(reused.getState(), m.state) << m.flags;
        EXPECT_EQ(reused.getStatus(), m.status) << m.flags;
    }
}

TEST_F(DiskTest, ReadsTextsOfAnyLength)
{
    using namespace std::string_literals;
    struct Texts {
        std::string revision, serial, model, address;
    };
    const std::string forty = " MODEL TEXT OF EXACTLY FORTY CHARACTERS ", twenty = "12345678901234567890";
    const std::string model = forty.substr(1, 38);
    // In the record, and as they are read.
    const std::pair<Texts, Texts> cases[] = {
        {{"REVISION", twenty, forty, "ADDRESS8"}, {"REVISION", twenty, model, "ADDRESS8" + forty.substr(8)}},
        {{" 1 \0"s, " \tS 1\t \0"s, "MODEL 1234\0"s, "ADDRESS8"},
         {" 1 ", "S 1", "MODEL 1234", "ADDRESS834"}}};
    for (const auto& [given, read] : cases) {
        Disk disk;
        std::memset(&disk.info, '~', sizeof disk.info); // nothing there ends a text by chance
        put(disk.info.RevisionText, given.revision);
        put(disk.info.SerialText, given.serial);
        put(disk.info.ModelText, given.model);
        put(disk.info.SASAddress, given.address);
        disk.fill();
        EXPECT_EQ(disk.getRevision(), read.revision);
        EXPECT_EQ(disk.getSerialNum(), read.serial);
        EXPECT_EQ(disk.getModelNum(), read.model);
        EXPECT_EQ(disk.getSASAddress(), read.address);
    }
}

} // namespace
