// The live source against captured machines: sysfs trees built in a folder, and changed between polls.
#include "mvsim/SimTest.h"

#include <sstream>

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
    // Files given as `name=content`, with semicolons between.
    void putAll(const std::string& folder, const std::string& files) const
    {
        std::istringstream stream(files);
        for (std::string file; std::getline(stream, file, ';');) {
            const std::size_t equals = file.find('=');
            put(folder + "/" + file.substr(0, equals), file.substr(equals + 1));
        }
    }
    void remove(const std::string& name) const { fs::remove_all(m_folder.path("sys/" + name)); }
    void link(const std::string& from, const std::string& to) const
    {
        fs::create_directory_symlink(to, m_folder.path("sys/" + from));
    }
    // A disk of which little is known.
    void putPlain(const std::string& name, const std::string& serial) const
    {
        putAll("block/" + name, "device/model=PLAIN;size=2048;device/serial=" + serial);
    }
    void putArray(const std::string& name, const std::string& level, int disks,
                  const std::string& state) const
    {
        putAll("block/" + name + "/md", "degraded=0;sync_action=idle;component_size=512;level=" + level +
                                            ";raid_disks=" + std::to_string(disks) + ";array_state=" + state);
    }
    void putMember(const std::string& array, const std::string& member, const std::string& state,
                   const std::string& slot = "none") const
    {
        putAll("block/" + array + "/md/dev-" + member, "state=" + state + ";slot=" + slot);
    }
    void loadLive(const char* stateFile = nullptr) const
    {
        std::array<char, 300> message{};
        ASSERT_EQ(mvsim_load_live(m_folder.path("sys").c_str(), stateFile, message.data(), message.size()), 0)
            << message.data();
    }
    static std::uint64_t freeKB(std::uint16_t id)
    {
        _HD_FreeSpaceInfo_Request request{};
        request.Header = {0, MV_REQUEST_ONE_DEVICE, id, 1, 0, {}};
        EXPECT_EQ(MV_PD_GetFreeSpaceInfo(0, &request), 0U);
        return request.Answer.FreeSizeKB;
    }
    static unsigned int driveStatus() { return list(&MV_LD_GetInfo).entries[0x02]; }
};

std::string text(const char* start, std::size_t width)
{
    return {start, strnlen(start, width)};
}

// What the two lists say of a disk.
std::string describe(const Bytes& infoEntry, const Bytes& configEntry)
{
    _HD_Info info{};
    std::memcpy(&info, infoEntry.data(), sizeof info);
    std::ostringstream line;
    line << +configEntry[6] << ' ' << text(info.ModelText, sizeof info.ModelText) << '|'
         << text(info.SerialText, sizeof info.SerialText) << '|'
         << text(info.RevisionText, sizeof info.RevisionText) << " link " << +info.LinkFlags << " features "
         << info.FeatureFlags << " KB " << info.SizeKB << " block " << info.BlockSize << " media "
         << +info.MediaFlags << " speed " << +configEntry[3];
    return line.str();
}

TEST_F(LiveTest, DiskFromEveryPlace)
{
    // As the kernel shows it, the folders lie under devices, and links lead there.
    const std::string ata = "devices/pci0000:00/0000:00:1f.2/ata3";
    const std::string sata = ata + "/host0/target0:0:0/0:0:0:0";
    putAll(ata + "/link3/ata_link/link3", "sata_spd=3.0 Gbps;hw_sata_spd_limit=6.0 Gbps");
    putAll(sata, "vendor=ATA     ;model=KORVAL H4T72    ;rev=KC43;wwid=naa.5A01");
    put(sata + "/vpd_pg80", std::string("\0\x80\0\x10", 4) + "        5A01");
    putAll(sata + "/block/sda", "size=7814037168;sda1/size=2097152;queue/logical_block_size=512;"
                                "queue/rotational=1;queue/write_cache=write back;sda1/partition=1");
    link(sata + "/block/sda/device", "../../../0:0:0:0");
    link("block/sda", "../" + sata + "/block/sda");

    putAll("devices/pci1/nvme/nvme0", "model=TESSEN NVX          ;serial=NVX-0001;firmware_rev=2.0.1");
    putAll("block/nvme0n1", "size=1875385008;queue/logical_block_size=4096;queue/rotational=0");
    link("block/nvme0n1/device", "../../devices/pci1/nvme/nvme0");
    putAll("block/nvme0c0n1", "device/model=PATH TO THE SAME;hidden=1");

    const std::string sas = "devices/pci2/host1/port-1:0/end_device-1:0/target1:0:0/1:0:0:0";
    putAll(sas, "vendor=ORBEN   ;model=TK1200R10       ;sas_address=0x5001ff00a1b2c3d4");
    put("block/sdb/queue/rotational", "1");
    link("block/sdb/device", "../../" + sas);

    // Two that say the same of themselves, and what is no disk.
    putAll("block/vda", "device/vendor=0x1af4;serial=disk-of-a-guest");
    putAll("block/vdb", "device/vendor=0x1af4;serial=disk-of-a-guest");
    for (const char* other : {"loop0", "ram1", "zram0", "dm-0", "sr0", "fd0", "md9"}) {
        put(std::string("block/") + other + "/device/model", "NO DISK");
    }
    put("block/sdc/size", "100"); // nothing behind it
    putAll("block/sdd", "device/model=CARD READER;removable=1;size=0");
    loadLive();

    const Answer infos = list(&MV_PD_GetHDInfo_Ext);
    const Answer configs = list(&MV_PD_GetConfig);
    std::vector<std::string> disks;
    for (std::size_t i = 0; i < infos.returned; ++i) {
        disks.push_back(describe(infos.entry(248, i), configs.entry(8, i)));
    }
    EXPECT_THAT(
        disks,
        ElementsAre("0 KORVAL H4T72|5A01|KC43 link 1 features 156 KB 3907018584 block 512 media 0 speed 2",
                    "1 ORBEN TK1200R10|| link 4 features 0 KB 0 block 512 media 0 speed 0",
                    "2 vda|disk-of-a-guest| link 0 features 0 KB 0 block 512 media 0 speed 0",
                    "3 vdb|disk-of-a-guest| link 0 features 0 KB 0 block 512 media 0 speed 0",
                    "4 TESSEN NVX|NVX-0001|2.0.1 link 0 features 0 KB 937692504 block 4096 media 1 speed 0"));
    const Bytes sasEntry = infos.entry(248, 1);
    EXPECT_EQ(Bytes(sasEntry.begin() + 0x30, sasEntry.begin() + 0x38),
              (Bytes{0x50, 1, 0xff, 0, 0xa1, 0xb2, 0xc3, 0xd4}));
    EXPECT_EQ(diskFlags(0), 1U);
    EXPECT_EQ(freeKB(0), 3907018584U - 1048576) << "all but the partition";
}

TEST_F(LiveTest, ArrayStates)
{
    const struct {
        const char* level;
        int disks;
        const char* state;
        const char* degraded; // null: there is no such file
        const char* action;
        unsigned int mode;
        unsigned int status;
        std::uint64_t sizeKB; // from components of 512 KB
    } cases[] = {
        {"raid1", 2, "clean", "0", "idle", 1, 0, 512},
        {"raid1", 2, "active", "1", "idle", 1, 1, 512},
        {"raid1", 2, "active", "1", "recover", 1, 5, 512},
        {"raid1", 2, "active", "2", "idle", 1, 3, 512},
        {"raid5", 4, "active", "1", "idle", 5, 1, 1536},
        {"raid6", 6, "active", "2", "recover", 6, 5, 2048},
        {"raid10", 4, "clean", "2", "idle", 16, 1, 1024},
        {"raid0", 3, "clean", nullptr, "idle", 0, 0, 1536},
        {"raid0", 3, "broken", nullptr, "idle", 0, 3, 1536},
        {"linear", 2, "clean", nullptr, "idle", 15, 0, 1024},
        {"raid4", 3, "clean", "0", "check", 5, 10, 1024},
        {"raid5", 3, "active", "0", "resync", 5, 15, 1024},
        {"raid5", 3, "inactive", "0", "idle", 5, 4, 1024},
    };
    putArray("md0", "raid1", 2, "clear");        // stopped
    put("block/md1/md/array_state", "inactive"); // a container
    for (const auto& row : cases) {
        SCOPED_TRACE(testing::Message() << row.level << " " << row.state << " " << row.action);
        putArray("md127", row.level, row.disks, row.state);
        putAll("block/md127/md", std::string("chunk_size=65536;sync_action=") + row.action);
        remove("block/md127/md/degraded");
        if (row.degraded != nullptr) {
            put("block/md127/md/degraded", row.degraded);
        }
        loadLive();
        const Answer drives = list(&MV_LD_GetInfo);
        ASSERT_EQ(drives.returned, 1U);
        EXPECT_EQ(drives.word(0x00), 127U);
        EXPECT_EQ(drives.entries[0x02], row.status);
        EXPECT_EQ(drives.word(0x04), 64U);
        EXPECT_EQ(drives.entries[0x06], row.mode);
        EXPECT_EQ(drives.word(0x18), row.sizeKB);
        EXPECT_EQ(list(&MV_LD_GetConfig).word(0x04), 127U);
    }
    remove("block/md127");
    putArray("md_home", "raid0", 2, "clean");
    putAll("block/md_home", "dev=9:300;size=123456");
    loadLive();
    EXPECT_EQ(list(&MV_LD_GetInfo).word(0x00), 300U);
    EXPECT_EQ(list(&MV_LD_GetInfo).word(0x18), 61728U);
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
    link("block/md1/md/dev-name-of-its-own/block", "../../../sdd/sdd1");
    putMember("md1", "gone1", "in_sync", "1");
    loadLive();
    const unsigned int flags[] = {2, 8, 8, 2, 1, 2}; // sda to sde, nvme0n1
    for (std::uint16_t id = 0; id < std::size(flags); ++id) {
        EXPECT_EQ(diskFlags(id), flags[id]) << id;
    }
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

    const struct {
        const char* what;
        const char* files; // of the array
        std::vector<std::string> events;
    } story[] = {
        {"degraded", "dev-sdb/state=faulty;degraded=1", {"2/201/1#1", "1/103/5#2"}},
        {"nothing new", "", {}},
        {"spare assigned", "dev-sdc/state=spare;dev-sdc/slot=none", {"2/211/2#3"}},
        {"spare takes over",
         "dev-sdc/slot=1;sync_action=recover;sync_completed=100 / 1000",
         {"2/212/2#4", "1/111/5#5"}},
        {"rebuild", "sync_completed=199 / 1000", {}},
        {"rebuild goes on", "sync_completed=600 / 1000", {"1/112/5#6"}},
        {"recovered",
         "sync_action=idle;sync_completed=none;degraded=0;dev-sdc/state=in_sync",
         {"1/113/5#7", "1/105/5#8"}},
        {"check", "sync_action=check", {"1/131/5#9"}},
        {"checked", "sync_action=idle", {"1/132/5#10"}},
        {"failed", "degraded=2", {"1/104/5#11"}},
        {"had failed before", "array_state=inactive", {}},
    };
    for (const auto& step : story) {
        putAll("block/md5/md", step.files);
        EXPECT_EQ(poll(), step.events) << step.what;
    }
    remove("block/md5/md/dev-sdb");
    EXPECT_THAT(poll(), ElementsAre("0/2/0#12")) << "no member any more";
    remove("block/sdb");
    EXPECT_THAT(poll(), ElementsAre("2/202/1#13"));
    putPlain("sdd", "serial of sdb");
    putPlain("sda9", "another");
    EXPECT_THAT(poll(), ElementsAre("2/203/1#14", "2/203/3#15")) << "it keeps its number under another name";
    remove("block/md5");
    putArray("md6", "raid1", 2, "active");
    putAll("block/md6/md", "degraded=1;sync_action=recover");
    EXPECT_THAT(poll(), ElementsAre("1/102/5#16", "1/101/6#17", "1/103/6#18", "1/111/6#19", "0/2/0#20"));
    remove("block");
    EXPECT_EQ(poll().size(), 5U) << "all that there was";
}

TEST_F(LiveTest, SequenceOutlivesTheProcess)
{
    const std::string state = m_folder.path("sequence");
    putPlain("sda", "a");
    // Loads, makes two events, and gives the second.
    const auto comeAndGo = [&] {
        loadLive(state.c_str());
        remove("block/sdb");
        poll();
        putPlain("sdb", "b");
        return poll().at(0);
    };
    EXPECT_EQ(comeAndGo(), "2/203/1#1") << "there was none to go";
    EXPECT_EQ(comeAndGo(), "2/203/1#3");
    EXPECT_EQ(m_folder.read("sequence"), "3\n");
    EXPECT_EQ(m_folder.entries(), 2U) << "no temporary file stays";
    for (const char* damaged : {"", "x", "12 apples", "-4", "99999999999"}) {
        m_folder.write("sequence", damaged);
        EXPECT_EQ(comeAndGo(), "2/203/1#2") << damaged;
    }
    m_folder.write("sequence", "7");
    mvsim_set_sequence_base(40);
    EXPECT_EQ(comeAndGo(), "2/203/1#42");
    EXPECT_EQ(m_folder.read("sequence"), "42\n");

    fs::remove(state);
    fs::create_directory(state);
    EXPECT_EQ(comeAndGo(), "2/203/1#42") << "a state file that cannot be written stops nothing";
}

} // namespace
