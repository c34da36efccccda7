// The live source against captured machines: sysfs trees built in a folder, and changed between polls. The
// stories in live/ are played line by line; what comes of a line follows it behind a ">".
#include "mvsim/SimTest.h"
#include "mvsim/SysfsTree.h"

#include <sstream>

namespace
{

namespace fs = std::filesystem;

template <std::size_t N>
std::string text(const char (&field)[N])
{
    return {field, strnlen(field, N)};
}

class LiveTest : public SimTest
{
  protected:
    void loadLive(const char* stateFile = nullptr) const
    {
        std::array<char, 300> message{};
        ASSERT_EQ(mvsim_load_live(m_tree.root().c_str(), stateFile, message.data(), message.size()), 0)
            << message.data();
    }

    static std::vector<std::string> disks()
    {
        const Answer infos = list(&MV_PD_GetHDInfo_Ext);
        const Answer configs = list(&MV_PD_GetConfig);
        std::vector<std::string> lines;
        for (std::size_t i = 0; i < infos.returned; ++i) {
            const auto info = infos.entry<_HD_Info>(i);
            const auto config = configs.entry<_HD_CONFIG>(i);
            _HD_FreeSpaceInfo_Request space{};
            space.Header = {0, MV_REQUEST_ONE_DEVICE, info.HD_Id, 1, 0, {}};
            EXPECT_EQ(MV_PD_GetFreeSpaceInfo(0, &space), 0U);
            std::ostringstream line;
            line << config.SlotNumber << ": "
                 << wordOf(mvsim::DISK_STATE_WORDS, diskStatus(info.HD_Id).value_or(0)) << ", "
                 << text(info.ModelText) << ", " << text(info.SerialText) << ", " << text(info.RevisionText)
                 << ", " << info.SizeKB << " KB, " << space.Answer.FreeSizeKB << " free, blocks of "
                 << info.BlockSize << ", " << wordOf(mvsim::LINK_WORDS, info.LinkFlags) << " at "
                 << wordOf(mvsim::SPEED_WORDS, config.LinkSpeed) << ", features " << info.FeatureFlags << ", "
                 << wordOf(mvsim::MEDIA_WORDS, info.MediaFlags);
            lines.push_back(line.str());
        }
        return lines;
    }
    static std::vector<std::string> drives()
    {
        const Answer infos = list(&MV_LD_GetInfo);
        const Answer configs = list(&MV_LD_GetConfig);
        std::vector<std::string> lines;
        for (std::size_t i = 0; i < infos.returned; ++i) {
            const auto info = infos.entry<_LD_Info>(i);
            EXPECT_EQ(info.LD_Id, configs.entry<_LD_Config>(i).LogicalDriveNumber);
            lines.push_back(std::to_string(info.LD_Id) + ": " + info.LDName + ", RAID " +
                            wordOf(mvsim::RAID_WORDS, info.RaidMode) + ", " +
                            wordOf(mvsim::DRIVE_STATUS_WORDS, info.LDStatus) + ", " +
                            std::to_string(info.SizeKB) + " KB in stripes of " +
                            std::to_string(info.StripeSize));
        }
        return lines;
    }

    // Demands that a story comes out as it is written: `load` shows the virtual disks and `poll` the events.
    void expectStory(const std::string& name)
    {
        const std::string story = TempFolder::readFile(std::string(MVSIM_TESTS_FOLDER "/live/") + name);
        std::istringstream lines(story);
        std::string told;
        for (std::string line; std::getline(lines, line);) {
            if (line.rfind("> ", 0) == 0)
                continue;
            told += line + "\n";
            std::vector<std::string> shown;
            if (line == "load") {
                loadLive();
                shown = drives();
            } else if (line == "disks" || line == "drives" || line == "poll") {
                shown = line == "disks" ? disks() : line == "drives" ? drives() : poll();
            } else {
                m_tree.perform(line);
            }
            for (const std::string& result : shown)
                told += "> " + result + "\n";
        }
        EXPECT_EQ(told, story);
    }

    TempFolder m_folder;
    SysfsTree m_tree{m_folder.path("sys")};
};

TEST_F(LiveTest, DisksFromEveryPlace)
{
    // Texts are filled up with blanks, and page 0x80 tells its length ahead of the serial number.
    m_tree.put("devices/pci0000:00/0000:00:1f.2/ata3/host0/target0:0:0/0:0:0:0",
               "vendor=ATA     ;model=KORVAL H4T72    ;vpd_pg80=" + std::string("\0\x80\0\x10", 4) +
                   "        5A01  ");
    expectStory("disks.txt");
    const auto sas = list(&MV_PD_GetHDInfo_Ext).entry<_HD_Info>(1);
    EXPECT_EQ(std::string(sas.SASAddress, sizeof sas.SASAddress),
              std::string("\x50\1\xff\0\xa1\xb2\xc3\xd4", 8));
}

TEST_F(LiveTest, ArraysMembersAndChanges)
{
    for (const char* story : {"array-states.txt", "members.txt", "changes.txt", "twins-and-losses.txt"}) {
        expectStory(story);
        m_tree.perform("drop block");
        m_tree.perform("in ");
    }
}

TEST_F(LiveTest, SequenceOutlivesTheProcess)
{
    fs::create_directory(m_folder.path("kept"));
    const std::string state = m_folder.path("kept/sequence");
    const std::string disk = "size=2048;device/model=PLAIN;device/serial=";
    m_tree.put("block/sda", disk + "a");
    // Loads, makes two events, and gives the second.
    const auto comeAndGo = [&] {
        loadLive(state.c_str());
        m_tree.perform("drop block/sdb");
        poll();
        m_tree.put("block/sdb", disk + "b");
        return poll().at(0);
    };
    EXPECT_EQ(comeAndGo(), "1: diskInserted 1") << "there was none to go";
    EXPECT_EQ(comeAndGo(), "3: diskInserted 1");
    EXPECT_EQ(m_folder.read("kept/sequence"), "3\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(m_folder.path("kept")), {}), 1) << "no temporary file";
    loadLive(state.c_str());
    fs::rename(m_folder.path("kept"), m_folder.path("moved"));
    fs::create_directory(m_folder.path("kept"));
    m_tree.perform("drop block/sdb");
    poll();
    m_tree.put("block/sdb", disk + "b");
    EXPECT_TRUE(fs::is_empty(m_folder.path("kept"))) << "a folder that takes over the name gets nothing";
    for (const char* damaged : {"", "x", "12 apples", "-4", "99999999999"}) {
        m_folder.write("kept/sequence", damaged);
        EXPECT_EQ(comeAndGo(), "2: diskInserted 1") << damaged;
    }
    fs::remove(state);
    fs::create_directory(state);
    EXPECT_EQ(comeAndGo(), "2: diskInserted 1") << "a state file that cannot be written stops nothing";
}

} // namespace
