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

    // Files below a folder of sysfs, each on a line or ahead of a semicolon: `name=content`, or `name ->
    // target` for a link.
    void put(const std::string& folder, std::string files) const
    {
        std::replace(files.begin(), files.end(), ';', '\n');
        std::istringstream lines(files);
        for (std::string line; std::getline(lines, line);) {
            const std::size_t equals = line.find('=');
            const std::size_t arrow = line.find(" -> ");
            const fs::path path =
                m_folder.path("sys/" + folder + "/" + line.substr(0, std::min(equals, arrow)));
            if (line.empty() || line.front() == '#') {
                continue;
            }
            fs::create_directories(path.parent_path());
            if (arrow != std::string::npos) {
                fs::create_directory_symlink(line.substr(arrow + 4), path);
            } else {
                std::ofstream(path) << line.substr(equals + 1) << '\n';
            }
        }
    }
    void putMachine(const std::string& name) const
    {
        put("", TempFolder::readFile(std::string(MVSIM_TESTS_FOLDER "/machines/") + name));
    }
    void putDisk(const std::string& name, const std::string& serial) const
    {
        put("block/" + name, "size=2048;device/model=PLAIN;device/serial=" + serial);
    }
    void remove(const std::string& name) const { fs::remove_all(m_folder.path("sys/" + name)); }
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
    static _LD_Info firstDrive() { return list(&MV_LD_GetInfo).entry<_LD_Info>(0); }
};

template <std::size_t N>
std::string text(const char (&field)[N])
{
    return {field, strnlen(field, N)};
}

TEST_F(LiveTest, DiskFromEveryPlace)
{
    putMachine("disks.txt");
    // Texts are filled up with blanks, and page 0x80 tells its length ahead of the serial number.
    put("block/sda/device", "vendor=ATA     ;model=KORVAL H4T72    ");
    m_folder.write("sys/block/sda/device/vpd_pg80", std::string("\0\x80\0\x10", 4) + "        5A01");
    loadLive();

    const Answer infos = list(&MV_PD_GetHDInfo_Ext);
    const Answer configs = list(&MV_PD_GetConfig);
    std::vector<std::string> disks;
    for (std::size_t i = 0; i < infos.returned; ++i) {
        const auto info = infos.entry<_HD_Info>(i);
        const auto config = configs.entry<_HD_CONFIG>(i);
        std::ostringstream line;
        line << config.SlotNumber << ": " << text(info.ModelText) << ", " << text(info.SerialText) << ", "
             << text(info.RevisionText) << ", " << info.SizeKB << " KB in " << info.BlockSize << ", link "
             << +info.LinkFlags << " speed " << +config.LinkSpeed << " features " << info.FeatureFlags
             << " media " << +info.MediaFlags;
        disks.push_back(line.str());
    }
    EXPECT_THAT(
        disks,
        ElementsAre(
            "0: KORVAL H4T72, 5A01, KC43, 3907018584 KB in 512, link 1 speed 2 features 156 media 0",
            "1: ORBEN TK1200R10, , , 0 KB in 512, link 4 speed 0 features 0 media 0",
            "2: vda, disk-of-a-guest, , 0 KB in 512, link 0 speed 0 features 0 media 0",
            "3: vdb, disk-of-a-guest, , 0 KB in 512, link 0 speed 0 features 0 media 0",
            "4: TESSEN NVX, NVX-0001, 2.0.1, 937692504 KB in 4096, link 0 speed 0 features 0 media 1"));
    const auto sas = infos.entry<_HD_Info>(1);
    EXPECT_EQ(std::string(sas.SASAddress, sizeof sas.SASAddress),
              std::string("\x50\1\xff\0\xa1\xb2\xc3\xd4", 8));
    EXPECT_EQ(diskStatus(0), MV_DISK_READY);
    EXPECT_EQ(freeKB(0), 3907018584U - 1048576) << "all but the partition";
}

TEST_F(LiveTest, ArrayStates)
{
    const struct {
        const char* files;
        unsigned int raidMode;
        unsigned int status;
        std::uint64_t sizeKB; // from components of 512 KB
    } cases[] = {
        {"level=raid1;raid_disks=2;array_state=clean;degraded=0", MV_RAID_1, MV_DRIVE_OPTIMAL, 512},
        {"level=raid1;raid_disks=2;array_state=active;degraded=1", MV_RAID_1, MV_DRIVE_DEGRADED, 512},
        {"level=raid1;raid_disks=2;array_state=active;degraded=1;sync_action=recover", MV_RAID_1,
         MV_DRIVE_REBUILDING, 512},
        {"level=raid1;raid_disks=2;array_state=active;degraded=2", MV_RAID_1, MV_DRIVE_FAILED, 512},
        {"level=raid5;raid_disks=4;array_state=active;degraded=1", MV_RAID_5, MV_DRIVE_DEGRADED, 1536},
        {"level=raid6;raid_disks=6;array_state=active;degraded=2;sync_action=recover", MV_RAID_6,
         MV_DRIVE_REBUILDING, 2048},
        {"level=raid10;raid_disks=4;array_state=clean;degraded=2", MV_RAID_10, MV_DRIVE_DEGRADED, 1024},
        {"level=raid0;raid_disks=3;array_state=clean", MV_RAID_0, MV_DRIVE_OPTIMAL, 1536},
        {"level=raid0;raid_disks=3;array_state=broken", MV_RAID_0, MV_DRIVE_FAILED, 1536},
        {"level=linear;raid_disks=2;array_state=clean", MV_RAID_NONE, MV_DRIVE_OPTIMAL, 1024},
        {"level=raid4;raid_disks=3;array_state=clean;sync_action=check", MV_RAID_5, MV_DRIVE_CHECKING, 1024},
        {"level=raid5;raid_disks=3;array_state=active;sync_action=resync", MV_RAID_5, MV_DRIVE_INITIALISING,
         1024},
        {"level=raid5;raid_disks=3;array_state=inactive;degraded=0", MV_RAID_5, MV_DRIVE_OFFLINE, 1024},
    };
    put("block", "md0/md/level=raid1;md0/md/array_state=clear;md1/md/array_state=inactive"); // no arrays
    for (const auto& row : cases) {
        SCOPED_TRACE(row.files);
        remove("block/md127");
        put("block/md127/md", std::string("chunk_size=65536;component_size=512;") + row.files);
        loadLive();
        ASSERT_EQ(list(&MV_LD_GetInfo).returned, 1U);
        const _LD_Info drive = firstDrive();
        EXPECT_EQ(drive.LD_Id, 127);
        EXPECT_EQ(drive.RaidMode, row.raidMode);
        EXPECT_EQ(drive.LDStatus, row.status);
        EXPECT_EQ(drive.SizeKB, row.sizeKB);
        EXPECT_EQ(drive.StripeSize, 64);
        EXPECT_EQ(list(&MV_LD_GetConfig).entry<_LD_Config>(0).LogicalDriveNumber, 127);
    }
    remove("block/md127");
    put("block/md_home", "dev=9:300;size=123456;md/level=raid0;md/raid_disks=2;md/array_state=clean");
    loadLive();
    EXPECT_EQ(firstDrive().LD_Id, 300);
    EXPECT_EQ(firstDrive().SizeKB, 61728U);
}

TEST_F(LiveTest, MembersMakeDiskStates)
{
    putMachine("members.txt");
    loadLive();
    const unsigned int expected[] = {MV_DISK_IN_ARRAY, MV_DISK_BAD,   MV_DISK_BAD,
                                     MV_DISK_IN_ARRAY, MV_DISK_READY, MV_DISK_IN_ARRAY};
    for (std::uint16_t id = 0; id < std::size(expected); ++id) {
        EXPECT_EQ(diskStatus(id), expected[id]) << id;
    }
    EXPECT_EQ(freeKB(0), 1024U) << "a member on a partition takes no more than the partition";
    EXPECT_EQ(freeKB(1), 512U) << "a whole disk gives what the array takes of it";

    EXPECT_EQ(firstDrive().LDStatus, MV_DRIVE_OPTIMAL) << "none is missing";
    put("block/md0/md", "level=raid0");
    remove("block/md0/md/degraded");
    poll();
    EXPECT_EQ(firstDrive().LDStatus, MV_DRIVE_FAILED) << "without redundancy a faulty one is enough";
}

TEST_F(LiveTest, ChangesBecomeEvents)
{
    for (const char* name : {"sda", "sdb", "sdc", "sdd"}) {
        putDisk(name, std::string("serial of ") + name);
    }
    put("block/md5/md", "level=raid1;raid_disks=2;array_state=active;degraded=0;"
                        "dev-sda/state=in_sync;dev-sda/slot=0;dev-sdb/state=in_sync;dev-sdb/slot=1");
    loadLive();
    EXPECT_THAT(poll(), IsEmpty()) << "what was there from the start is no news";

    const struct {
        const char* gone;  // below block/
        const char* files; // below block/, too
        std::vector<std::string> events;
    } story[] = {
        {"",
         "md5/md/dev-sdb/state=faulty;md5/md/degraded=1",
         {"1: diskFailed 1", "2: virtualDiskDegraded 5"}},
        {"", "", {}},
        {"", "md5/md/dev-sdc/state=spare;md5/md/dev-sdc/slot=none", {"3: spareAssigned 2"}},
        {"",
         "md5/md/dev-sdc/slot=1;md5/md/sync_action=recover;md5/md/sync_completed=100 / 1000",
         {"4: spareActivated 2", "5: rebuildStarted 5"}},
        {"", "md5/md/sync_completed=199 / 1000", {}},
        {"", "md5/md/sync_completed=600 / 1000", {"6: rebuildProgress 5"}},
        {"",
         "md5/md/sync_action=idle;md5/md/sync_completed=none;md5/md/degraded=0;md5/md/dev-sdc/state=in_sync",
         {"7: rebuildCompleted 5", "8: virtualDiskRecovered 5"}},
        {"", "md5/md/dev-sdd/state=in_sync;md5/md/dev-sdd/slot=2", {"9: diskOnline 3"}},
        {"", "md5/md/sync_action=check", {"10: checkStarted 5"}},
        {"", "md5/md/sync_action=idle", {"11: checkCompleted 5"}},
        {"", "md5/md/degraded=2", {"12: virtualDiskFailed 5"}},
        {"", "md5/md/array_state=inactive", {}},
        {"md5/md/dev-sdb", "", {"13: controllerConfigChanged 0"}},
        {"sdb", "", {"14: diskRemoved 1"}},
        // It keeps its number under another name.
        {"",
         "sde/device/model=PLAIN;sde/device/serial=serial of sdb;sda9/device/serial=another",
         {"15: diskInserted 1", "16: diskInserted 4"}},
        {"md5",
         "md6/md/level=raid1;md6/md/raid_disks=2;md6/md/array_state=active;md6/md/degraded=1;"
         "md6/md/sync_action=recover",
         {"17: virtualDiskDeleted 5", "18: virtualDiskCreated 6", "19: virtualDiskDegraded 6",
          "20: rebuildStarted 6", "21: controllerConfigChanged 0"}},
    };
    for (const auto& step : story) {
        if (step.gone[0] != '\0') {
            remove(std::string("block/") + step.gone);
        }
        put("block", step.files);
        EXPECT_EQ(poll(), step.events) << step.gone << " " << step.files;
    }
    remove("block");
    EXPECT_EQ(poll().size(), 6U) << "all that there was";
}

TEST_F(LiveTest, SequenceOutlivesTheProcess)
{
    const std::string state = m_folder.path("sequence");
    putDisk("sda", "a");
    // Loads, makes two events, and gives the second.
    const auto comeAndGo = [&] {
        loadLive(state.c_str());
        remove("block/sdb");
        poll();
        putDisk("sdb", "b");
        return poll().at(0);
    };
    EXPECT_EQ(comeAndGo(), "1: diskInserted 1") << "there was none to go";
    EXPECT_EQ(comeAndGo(), "3: diskInserted 1");
    EXPECT_EQ(m_folder.read("sequence"), "3\n");
    EXPECT_EQ(m_folder.entries(), 2U) << "no temporary file stays";
    for (const char* damaged : {"", "x", "12 apples", "-4", "99999999999"}) {
        m_folder.write("sequence", damaged);
        EXPECT_EQ(comeAndGo(), "2: diskInserted 1") << damaged;
    }
    m_folder.write("sequence", "7");
    mvsim_set_sequence_base(40);
    EXPECT_EQ(comeAndGo(), "42: diskInserted 1");
    EXPECT_EQ(m_folder.read("sequence"), "42\n");

    fs::remove(state);
    fs::create_directory(state);
    EXPECT_EQ(comeAndGo(), "42: diskInserted 1") << "a state file that cannot be written stops nothing";
}

} // namespace
