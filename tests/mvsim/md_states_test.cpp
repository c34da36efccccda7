// What the live source makes of everything that md can say. Each line of md-states.txt is an array with its
// members; behind the ">" stands what is shown of them.
#include "mvlayer/VendorBuffer.h"
#include "mvsim/SimTest.h"
#include "mvsim/live/ArrayJudge.h"
#include "mvsim/live/LiveSource.h"

#include <map>
#include <sstream>

namespace
{

constexpr std::uint64_t DISK_KB = 1000;

// "b@1=in_sync,write_mostly": disk b in place 1; "-" stands for no place. All give 800 KB.
mvsim::MdMember member(const std::string& word)
{
    mvsim::MdMember result;
    result.name = word.substr(0, 1);
    result.state = word.substr(word.find('=') + 1);
    result.sizeKB = 800;
    if (word.at(2) != '-')
        result.slot = word.at(2) - '0';
    return result;
}

std::string shown(const std::string& machine)
{
    std::istringstream words(machine);
    std::map<std::string, std::string> told;
    mvsim::MdArray array;
    std::vector<mvsim::SeenDisk> disks;
    for (std::string word; words >> word;) {
        if (word.find('@') == std::string::npos) {
            told[word.substr(0, word.find('='))] = word.substr(word.find('=') + 1);
            continue;
        }
        array.members.push_back(member(word));
        disks.emplace_back().name = array.members.back().name;
        disks.back().device.info.SizeKB = DISK_KB;
        disks.back().device.raidStatus.RaidStatusFlags = MV_DISK_READY;
    }
    const auto number = [&told](const char* name) {
        return told.count(name) != 0 ? std::optional(std::stoull(told[name], nullptr, 0)) : std::nullopt;
    };
    array.name = "md0";
    array.level = told["level"];
    array.metadata = told["metadata"];
    array.state = told["state"];
    array.action = told["action"];
    array.raidDisks = number("disks");
    array.degraded = number("degraded");
    array.layout = number("layout");
    array.componentKB = number("component");
    std::ostringstream text;
    const mvsim::SeenMachine seen = mvsim::judgeArrays(disks, {array});
    for (const mvsim::SeenArray& drive : seen.arrays) {
        text << " RAID " << wordOf(mvsim::RAID_WORDS, drive.device.info.RaidMode) << ' '
             << wordOf(mvsim::DRIVE_STATUS_WORDS, drive.device.info.LDStatus) << ' '
             << drive.device.info.SizeKB;
    }
    for (const mvsim::SeenDisk& disk : seen.disks) {
        text << ' ' << disk.name << ' '
             << wordOf(mvsim::DISK_STATE_WORDS, disk.device.raidStatus.RaidStatusFlags) << ' '
             << disk.device.freeSpace.Answer.FreeSizeKB;
    }
    return text.str();
}

TEST(MdStates, AreJudgedAsTheTableSays)
{
    std::istringstream table(TempFolder::readFile(MVSIM_TESTS_FOLDER "/md-states.txt"));
    unsigned int rows = 0;
    for (std::string line; std::getline(table, line);) {
        const std::size_t end = line.find(" >");
        if (end == std::string::npos)
            continue;
        EXPECT_EQ(shown(line.substr(0, end)), line.substr(end + 2)) << line;
        ++rows;
    }
    EXPECT_GT(rows, 80U);
}

// Callers read the lists of machines of any size: what they make of the largest answer holds one entry more
// than there are, of every record.
TEST(LiveSource, TheListsOfLargeMachinesFit)
{
    for (const auto& [disks, arrays] : {std::pair(0U, 1700U), {1U, 0U}, {600U, 430U}, {2200U, 0U}}) {
        const TempFolder folder;
        for (unsigned int i = 0; i < disks; ++i)
            std::filesystem::create_directories(folder.path("block/d" + std::to_string(i) + "/device"));
        for (unsigned int i = 0; i < arrays; ++i) {
            const std::string md = "block/md" + std::to_string(i) + "/md/";
            std::filesystem::create_directories(folder.path(md));
            folder.write(md + "level", "raid0");
            folder.write(md + "array_state", "clean");
        }
        const mvsim::Adapter adapter = mvsim::LiveSource(folder.path(""), "").adapters().at(0).model;
        ASSERT_EQ(adapter.disks.size(), disks);
        ASSERT_EQ(adapter.virtualDisks.size(), arrays);
        const std::uint32_t largest = adapter.info.MaxBufferSizeKB * 1024U;
        EXPECT_NE(stg::ListBuffer<_HD_Info>(largest).entry(disks), nullptr);
        EXPECT_NE(stg::ListBuffer<_HD_CONFIG>(largest).entry(disks), nullptr);
        EXPECT_NE(stg::ListBuffer<_LD_Info>(largest).entry(arrays), nullptr);
        EXPECT_NE(stg::ListBuffer<_LD_Config>(largest).entry(arrays), nullptr);
    }
}

} // namespace
