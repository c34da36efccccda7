// The live source against captured machines: sysfs trees built in a folder, and changed between polls.
#include "mvsim/SimTest.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

class LiveTest : public SimTest
{
  protected:
    LiveTest() { fs::create_directories(m_folder.path("sys/block")); }

    void put(const std::string& file, const std::string& content) const
    {
        const fs::path path = m_folder.path("sys/" + file);
        fs::create_directories(path.parent_path());
        std::ofstream(path) << content << '\n';
    }
    void remove(const std::string& name) const { fs::remove_all(m_folder.path("sys/" + name)); }
    // A SATA disk as the kernel shows it: the folders lie under devices, links lead there.
    void putSata(const std::string& name, const std::string& port, const std::string& serial) const
    {
        const std::string target =
            "devices/pci0000:00/0000:00:1f.2/ata" + port + "/host0/target0:0:0/0:0:0:0";
        const std::string link =
            "devices/pci0000:00/0000:00:1f.2/ata" + port + "/link" + port + "/ata_link/link" + port;
        put(link + "/sata_spd", "3.0 Gbps");
        put(link + "/hw_sata_spd_limit", "6.0 Gbps");
        put(target + "/vendor", "ATA     ");
        put(target + "/model", "KORVAL H4T72    ");
        put(target + "/rev", "KC43");
        put(target + "/wwid", "naa." + serial);
        put(target + "/vpd_pg80", std::string("\0\x80\0\x10", 4) + "        " + serial);
        put(target + "/block/" + name + "/size", "7814037168");
        put(target + "/block/" + name + "/queue/logical_block_size", "512");
        put(target + "/block/" + name + "/queue/rotational", "1");
        put(target + "/block/" + name + "/queue/write_cache", "write back");
        fs::create_directory_symlink("../../../0:0:0:0",
                                     m_folder.path("sys/" + target + "/block/" + name + "/device"));
        fs::create_directory_symlink("../" + target + "/block/" + name, m_folder.path("sys/block/" + name));
    }
    // A disk of which little is known.
    void putPlain(const std::string& name, const std::string& serial) const
    {
        put("block/" + name + "/device/model", "PLAIN");
        put("block/" + name + "/device/serial", serial);
        put("block/" + name + "/size", "2048");
    }
    void putArray(const std::string& name, const std::string& level, int disks,
                  const std::string& state) const
    {
        put("block/" + name + "/md/level", level);
        put("block/" + name + "/md/raid_disks", std::to_string(disks));
        put("block/" + name + "/md/array_state", state);
        put("block/" + name + "/md/degraded", "0");
        put("block/" + name + "/md/sync_action", "idle");
        put("block/" + name + "/md/component_size", "512");
    }
    void putMember(const std::string& array, const std::string& member, const std::string& state,
                   const std::string& slot = "none") const
    {
        put("block/" + array + "/md/dev-" + member + "/state", state);
        put("block/" + array + "/md/dev-" + member + "/slot", slot);
    }
    void loadLive(const char* stateFile = nullptr) const
    {
        std::array<char, 300> message{};
        ASSERT_EQ(mvsim_load_live(m_folder.path("sys").c_str(), stateFile, message.data(), message.size()), 0)
            << message.data();
    }
    static std::string textAt(const Answer& answer, std::size_t offset, std::size_t width)
    {
        const auto* start = reinterpret_cast<const char*>(answer.entries.data()) + offset;
        return {start, strnlen(start, width)};
    }
    static std::uint64_t freeKB(std::uint16_t id)
    {
        _HD_FreeSpaceInfo_Request request{};
        request.Header.RequestType = MV_REQUEST_ONE_DEVICE;
        request.Header.StartIndexOrId = id;
        request.Header.NumRequested = 1;
        EXPECT_EQ(MV_PD_GetFreeSpaceInfo(0, &request), 0U);
        return request.Answer.FreeSizeKB;
    }
    static unsigned int driveStatus() { return list(&MV_LD_GetInfo).entries[0x02]; }
};

TEST_F(LiveTest, DiskFromEveryPlace)
{
    putSata("sda", "3", "5A01");
    put("devices/pci0000:00/0000:00:1f.2/ata3/host0/target0:0:0/0:0:0:0/block/sda/sda1/partition", "1");
    put("devices/pci0000:00/0000:00:1f.2/ata3/host0/target0:0:0/0:0:0:0/block/sda/sda1/size", "2097152");

    put("devices/pci1/nvme/nvme0/model", "TESSEN NVX                              ");
    put("devices/pci1/nvme/nvme0/serial", "NVX-0001");
    put("devices/pci1/nvme/nvme0/firmware_rev", "2.0.1");
    put("block/nvme0n1/size", "1875385008");
    put("block/nvme0n1/queue/logical_block_size", "4096");
    put("block/nvme0n1/queue/rotational", "0");
    put("block/nvme0c0n1/device/model", "PATH TO THE SAME");
    put("block/nvme0c0n1/hidden", "1");
    fs::create_directory_symlink("../../devices/pci1/nvme/nvme0", m_folder.path("sys/block/nvme0n1/device"));

    const std::string sas = "devices/pci2/host1/port-1:0/end_device-1:0/target1:0:0/1:0:0:0";
    put(sas + "/vendor", "ORBEN   ");
    put(sas + "/model", "TK1200R10       ");
    put(sas + "/sas_address", "0x5001ff00a1b2c3d4");
    put("block/sdb/queue/rotational", "1");
    fs::create_directory_symlink("../../" + sas, m_folder.path("sys/block/sdb/device"));

    put("block/vda/device/vendor", "0x1af4");
    put("block/vda/serial", "disk-of-a-guest");
    for (const char* other : {"loop0", "ram1", "zram0", "dm-0", "sr0", "fd0", "md9"}) {
        put(std::string("block/") + other + "/device/model", "NO DISK");
    }
    put("block/sdc/size", "100"); // nothing behind it
    put("block/sdd/device/model", "CARD READER");
    put("block/sdd/removable", "1");
    put("block/sdd/size", "0");
    putSata("sdz", "12", "5A02");
    remove("devices/pci0000:00/0000:00:1f.2/ata12/link12/ata_link/link12/hw_sata_spd_limit");
    loadLive();

    const Answer infos = list(&MV_PD_GetHDInfo_Ext);
    ASSERT_EQ(infos.returned, 5U);
    struct Case {
        const char* model;
        const char* serial;
        const char* revision;
        unsigned int link;
        std::uint32_t features;
        std::uint64_t sizeKB;
        unsigned int blockSize;
        unsigned int media;
        Bytes sasAddress;
        unsigned int speed;
    };
    const Case cases[] = {
        {"KORVAL H4T72", "5A01", "KC43", 1, 0x9c, 3907018584, 512, 0, Bytes(8), 2},
        {"ORBEN TK1200R10", "", "", 4, 0, 0, 512, 0, {0x50, 1, 0xff, 0, 0xa1, 0xb2, 0xc3, 0xd4}, 0},
        {"KORVAL H4T72", "5A02", "KC43", 1, 0x1c, 3907018584, 512, 0, Bytes(8), 2},
        {"vda", "disk-of-a-guest", "", 0, 0, 0, 512, 0, Bytes(8), 0},
        {"TESSEN NVX", "NVX-0001", "2.0.1", 0, 0, 937692504, 4096, 1, Bytes(8), 0},
    };
    const Answer configs = list(&MV_PD_GetConfig);
    for (unsigned int i = 0; i < infos.returned; ++i) {
        const Case& row = cases[i];
        SCOPED_TRACE(row.model);
        _HD_Info info{};
        std::memcpy(&info, infos.entry(248, i).data(), sizeof info);
        EXPECT_EQ(textAt(infos, i * 248 + 0x4c, 40), row.model);
        EXPECT_EQ(textAt(infos, i * 248 + 0x74, 20), row.serial);
        EXPECT_EQ(textAt(infos, i * 248 + 0x88, 8), row.revision);
        EXPECT_EQ(+info.LinkFlags, row.link);
        EXPECT_EQ(std::uint32_t{info.FeatureFlags}, row.features);
        EXPECT_EQ(std::uint64_t{info.SizeKB}, row.sizeKB);
        EXPECT_EQ(std::uint32_t{info.BlockSize}, row.blockSize);
        EXPECT_EQ(+info.MediaFlags, row.media);
        EXPECT_EQ(Bytes(info.SASAddress, info.SASAddress + 8), row.sasAddress);
        EXPECT_EQ(configs.entries[i * 8 + 3], row.speed);
        EXPECT_EQ(configs.word(i * 8 + 6), i);
        EXPECT_EQ(diskFlags(static_cast<std::uint16_t>(i)), 1U);
    }
    EXPECT_EQ(freeKB(0), 3907018584U - 1048576) << "all but the partition";
    EXPECT_THAT(poll(), IsEmpty());
}

TEST_F(LiveTest, ArrayStates)
{
    struct Case {
        const char* level;
        int disks;
        const char* state;
        const char* degraded; // null: there is no such file
        const char* action;
        unsigned int mode;
        unsigned int status;
        std::uint64_t sizeKB; // from components of 512 KB
    };
    const Case cases[] = {
        {"raid1", 2, "clean", "0", "idle", 1, 0, 512},
        {"raid1", 2, "active", "1", "idle", 1, 1, 512},
        {"raid1", 2, "active", "1", "recover", 1, 5, 512},
        {"raid1", 2, "active", "2", "idle", 1, 3, 512},
        {"raid5", 4, "active", "1", "idle", 5, 1, 1536},
        {"raid5", 4, "active", "2", "idle", 5, 3, 1536},
        {"raid6", 6, "active", "2", "recover", 6, 5, 2048},
        {"raid6", 6, "active", "3", "idle", 6, 3, 2048},
        {"raid10", 4, "clean", "2", "idle", 16, 1, 1024},
        {"raid0", 3, "clean", nullptr, "idle", 0, 0, 1536},
        {"raid0", 3, "broken", nullptr, "idle", 0, 3, 1536},
        {"linear", 2, "clean", nullptr, "idle", 15, 0, 1024},
        {"raid4", 3, "clean", "0", "check", 5, 10, 1024},
        {"raid5", 3, "active", "0", "resync", 5, 15, 1024},
        {"raid5", 3, "inactive", "0", "idle", 5, 4, 1024},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(testing::Message() << row.level << " " << row.state << " " << row.action);
        remove("block/md127");
        putArray("md127", row.level, row.disks, row.state);
        put("block/md127/md/sync_action", row.action);
        put("block/md127/md/chunk_size", "65536");
        if (row.degraded != nullptr) {
            put("block/md127/md/degraded", row.degraded);
        } else {
            remove("block/md127/md/degraded");
        }
        loadLive();
        const Answer drives = list(&MV_LD_GetInfo);
        ASSERT_EQ(drives.returned, 1U);
        EXPECT_EQ(drives.word(0x00), 127U);
        EXPECT_EQ(drives.entries[0x02], row.status);
        EXPECT_EQ(drives.word(0x04), 64U);
        EXPECT_EQ(drives.entries[0x06], row.mode);
        EXPECT_EQ(drives.word(0x18), row.sizeKB);
        EXPECT_EQ(textAt(drives, 0x20, 280), "md127");
        EXPECT_EQ(list(&MV_LD_GetConfig).word(0x04), 127U);
    }
    remove("block/md127");
    putArray("md0", "raid1", 2, "clear");        // stopped
    put("block/md1/md/array_state", "inactive"); // a container
    putArray("md_home", "raid0", 2, "clean");
    put("block/md_home/dev", "9:300");
    put("block/md_home/size", "123456");
    loadLive();
    const Answer drives = list(&MV_LD_GetInfo);
    ASSERT_EQ(drives.returned, 1U);
    EXPECT_EQ(drives.word(0x00), 300U);
    EXPECT_EQ(drives.word(0x18), 61728U);
}

TEST_F(LiveTest, MembersMakeDiskStates)
{
    for (const char* name : {"sda", "sdb", "sdc", "sdd", "sde", "nvme0n1"}) {
        putPlain(name, name);
    }
    putArray("md0", "raid1", 2, "active");
    putMember("md0", "sda1", "in_sync,write_mostly", "0");
    putMember("md0", "sdb", "faulty,blocked");
    putMember("md0", "sdc2", "spare");
    putMember("md0", "nvme0n1p3", "spare", "1"); // being rebuilt
    putArray("md1", "raid1", 2, "active");
    putMember("md1", "sda2", "spare");
    putMember("md1", "sdc3", "faulty", "0");
    putMember("md1", "name-of-its-own", "in_sync", "1");
    put("block/sdd/sdd1/partition", "1");
    fs::create_directory_symlink("../../../sdd/sdd1",
                                 m_folder.path("sys/block/md1/md/dev-name-of-its-own/block"));
    putMember("md1", "gone1", "in_sync", "1");
    loadLive();
    std::vector<unsigned int> flags;
    for (std::uint16_t id = 0; id < 6; ++id) {
        flags.push_back(diskFlags(id));
    }
    EXPECT_THAT(flags, ElementsAre(2, 8, 8, 2, 1, 2)) << "sda to sde, nvme0n1";
    EXPECT_EQ(freeKB(0), 1024U) << "a member on a partition takes no more than the partition";
    EXPECT_EQ(freeKB(1), 512U) << "a whole disk gives what the array takes of it";

    // Without redundancy there is no count of missing disks, but a faulty one is enough.
    EXPECT_EQ(driveStatus(), 0U);
    put("block/md0/md/level", "raid0");
    remove("block/md0/md/degraded");
    poll();
    EXPECT_EQ(driveStatus(), 3U);
}

TEST_F(LiveTest, ChangesBecomeEvents)
{
    for (const char* name : {"sda", "sdb", "sdc"}) {
        putPlain(name, std::string("serial of ") + name);
    }
    putArray("md5", "raid1", 2, "active");
    putMember("md5", "sda", "in_sync", "0");
    putMember("md5", "sdb", "in_sync", "1");
    loadLive();
    EXPECT_THAT(poll(), IsEmpty()) << "what was there from the start is no news";

    putMember("md5", "sdb", "faulty");
    put("block/md5/md/degraded", "1");
    EXPECT_THAT(poll(), ElementsAre("2/201/1#1", "1/103/5#2")) << "failed; degraded";
    EXPECT_EQ(diskFlags(1), 8U);
    EXPECT_EQ(driveStatus(), 1U);
    EXPECT_THAT(poll(), IsEmpty());

    putMember("md5", "sdc", "spare");
    EXPECT_THAT(poll(), ElementsAre("2/211/2#3")) << "a spare was assigned";
    putMember("md5", "sdc", "spare", "1");
    put("block/md5/md/sync_action", "recover");
    put("block/md5/md/sync_completed", "100 / 1000");
    EXPECT_THAT(poll(), ElementsAre("2/212/2#4", "1/111/5#5")) << "it takes over; the rebuild has started";
    put("block/md5/md/sync_completed", "199 / 1000");
    EXPECT_THAT(poll(), IsEmpty());
    put("block/md5/md/sync_completed", "600 / 1000");
    EXPECT_THAT(poll(), ElementsAre("1/112/5#6")) << "progress";
    put("block/md5/md/sync_action", "idle");
    put("block/md5/md/sync_completed", "none");
    put("block/md5/md/degraded", "0");
    putMember("md5", "sdc", "in_sync", "1");
    EXPECT_THAT(poll(), ElementsAre("1/113/5#7", "1/105/5#8")) << "completed; recovered";

    remove("block/md5/md/dev-sdb");
    EXPECT_THAT(poll(), ElementsAre("0/2/0#9")) << "no member any more";
    remove("block/sdb");
    EXPECT_THAT(poll(), ElementsAre("2/202/1#10"));
    putPlain("sdd", "serial of sdb");
    putPlain("sda9", "another");
    EXPECT_THAT(poll(), ElementsAre("2/203/1#11", "2/203/3#12")) << "it keeps its number under another name";

    put("block/md5/md/sync_action", "check");
    EXPECT_THAT(poll(), ElementsAre("1/131/5#13"));
    put("block/md5/md/sync_action", "idle");
    EXPECT_THAT(poll(), ElementsAre("1/132/5#14"));
    put("block/md5/md/degraded", "2");
    EXPECT_THAT(poll(), ElementsAre("1/104/5#15"));
    put("block/md5/md/array_state", "inactive");
    EXPECT_THAT(poll(), IsEmpty()) << "it had failed before";
    remove("block/md5");
    putArray("md6", "raid1", 2, "active");
    put("block/md6/md/degraded", "1");
    put("block/md6/md/sync_action", "recover");
    EXPECT_THAT(poll(), ElementsAre("1/102/5#16", "1/101/6#17", "1/103/6#18", "1/111/6#19", "0/2/0#20"));
    remove("block");
    EXPECT_EQ(poll().size(), 5U) << "all that there was";
    EXPECT_EQ(mvsim_last_poll(), 0U);
}

TEST_F(LiveTest, SequenceOutlivesTheProcess)
{
    const std::string state = m_folder.path("sequence");
    putPlain("sda", "a");
    const auto reload = [&] { loadLive(state.c_str()); };
    const auto comeAndGo = [this] {
        remove("block/sdb");
        poll();
        putPlain("sdb", "b");
        return poll();
    };
    reload();
    EXPECT_THAT(comeAndGo(), ElementsAre("2/203/1#1"));
    EXPECT_EQ(m_folder.read("sequence"), "1\n");
    reload();
    EXPECT_THAT(comeAndGo(), ElementsAre("2/203/1#3"));
    EXPECT_EQ(m_folder.read("sequence"), "3\n");
    EXPECT_EQ(m_folder.entries(), 2U) << "no temporary file stays";

    for (const char* damaged : {"", "x", "12 apples", "-4", "99999999999"}) {
        m_folder.write("sequence", damaged);
        reload();
        EXPECT_THAT(comeAndGo(), ElementsAre("2/203/1#2")) << damaged;
    }
    m_folder.write("sequence", "7");
    mvsim_set_sequence_base(40);
    reload();
    EXPECT_THAT(comeAndGo(), ElementsAre("2/203/1#42"));
    EXPECT_EQ(m_folder.read("sequence"), "42\n");

    fs::remove(state);
    fs::create_directory(state);
    reload();
    EXPECT_THAT(comeAndGo(), ElementsAre("2/203/1#42"))
        << "a state file that cannot be written stops nothing";
}

TEST_F(LiveTest, DisksThatSayTheSameOfThemselves)
{
    put("block/vda/device/vendor", "0x1af4");
    put("block/vda/wwid", "same");
    put("block/vdb/device/vendor", "0x1af4");
    put("block/vdb/wwid", "same");
    loadLive();
    const Answer configs = list(&MV_PD_GetConfig);
    ASSERT_EQ(configs.returned, 2U);
    EXPECT_NE(configs.word(0x06), configs.word(0x0e));
}

} // namespace
