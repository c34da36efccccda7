#include "common/DataRows.h"
#include "common/PluginTest.h"
#include "model/CMarvelPhysicalDevice.h"
#include "model/Filled.h"
#include "support/Status.h"

#include <array>
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
    Disk reused;
    for (const auto& row : dataRows("tests/model/disk-codes.json")) {
        Disk fresh;
        for (Disk* const disk : {&fresh, &reused}) {
            disk->info.LinkFlags = row.at("linkFlags");
            disk->info.FeatureFlags = row.at("featureFlags");
            disk->info.MediaFlags = row.at("mediaFlags");
            disk->config.LinkSpeed = row.at("linkSpeed");
            disk->fill();
            EXPECT_EQ(disk->getCapableSpeed(), row.at("speed"));
            EXPECT_EQ(disk->getNegotiatedSpeed(), row.at("speed"));
        }
        EXPECT_EQ(fresh.getBusProtocol(), row.value("protocol", UNSET));
        EXPECT_EQ(fresh.getMedia(), row.value("media", UNSET));
        EXPECT_EQ(fresh.getWriteCacheSupport(), row.value("writeCache", UNSET));
        EXPECT_EQ(fresh.getEncryptionCap(), row.value("encryption", UNSET));
    }
    // Flags that went away leave what they set.
    EXPECT_EQ(reused.getBusProtocol(), 7U);
    EXPECT_EQ(reused.getMedia(), 2U);
    EXPECT_EQ(reused.getWriteCacheSupport() + reused.getEncryptionCap(), 2U);

    // RAID status flags, and the state and status that they mean.
    using Meaning = std::array<unsigned int, 3>;
    for (const Meaning m : dataRows("tests/model/disk-states.json")) {
        reused.helper.hdRaidStatus = m[0];
        reused.fill();
        EXPECT_EQ((Meaning{m[0], reused.getState(), reused.getStatus()}), m);
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
