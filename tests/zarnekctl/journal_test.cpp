// The story that the journal makes of single reports.
#include "zarnekctl/MonitorJournal.h"
#include "zarnekctl/MonitorTextPrinter.h"
#include "zarnekctl/Samples.h"

#include <gmock/gmock.h>

#include <regex>
#include <sstream>

using namespace zarnekctl;
using testing::ElementsAre;

namespace
{

constexpr unsigned int diskClass = 2;

// A journal whose output is text, with the time of day taken away.
class Story
{
  public:
    explicit Story(const std::string& mapping)
        : m_printer(m_out, Style{}), journal(&m_printer, [mapping] { return MappingFile(mapping); })
    {
    }

    std::vector<std::string> lines() const
    {
        std::vector<std::string> lines;
        std::istringstream in(m_out.str());
        for (std::string line; std::getline(in, line);)
            lines.push_back(std::regex_replace(line, std::regex("^[0-9:]{8}  | +(?= )"), ""));
        return lines;
    }

  private:
    std::ostringstream m_out;
    MonitorTextPrinter m_printer;

  public:
    MonitorJournal journal;
};

const std::string mapping =
    "[PhysicalDevice]\n201=2050\n202=2049\n[EventSequenceNumber]\nSequenceNumber=10\n";

} // namespace

TEST(MonitorJournal, alertsTakeTheSequenceNumberOfTheirOwnEvent)
{
    Story story(mapping);
    const mvsim_event events[] = {
        {0, diskClass, 201, 3, 9},  // old: an earlier run told it
        {0, diskClass, 777, 3, 11}, // unmapped
        {0, diskClass, 202, 3, 12}, // another alert number
        {1, diskClass, 201, 3, 13}, // another adapter
        {0, diskClass, 201, 4, 14}, // another disk
        {0, diskClass, 201, 3, 15}, {0, diskClass, 201, 3, 16},
    };
    for (const mvsim_event& event : events)
        story.journal.event(event);
    story.journal.notification(sampleDiskAlert(2050, 3));
    story.journal.notification(sampleDiskAlert(2050, 3));
    story.journal.notification(sampleDiskAlert(2050, 3)); // no event left
    story.journal.event({0, diskClass, 201, 3, 17});
    story.journal.pollEnd();
    story.journal.notification(sampleDiskAlert(2050, 3)); // not of this poll
    EXPECT_THAT(story.lines(), ElementsAre("2050 disk failed disk 3 on controller 0 sequence 15",
                                           "2050 disk failed disk 3 on controller 0 sequence 16",
                                           "2050 disk failed disk 3 on controller 0",
                                           "2050 disk failed disk 3 on controller 0"));
    EXPECT_EQ(story.journal.counts().alerts, 4U);
}

TEST(MonitorJournal, insertionsOfOneRefreshAreOneChange)
{
    Story story(mapping);
    const Object disk = sampleDisk(0, 1, 4, 2);
    const Object failed = with(with(disk, u32(SSPROP_STATE_U32, 8)), u32(SSPROP_STATUS_U32, 4));
    const Object bare = sampleVirtualDisk(0, 0, 1, 2);
    const Object drive = with(bare, u32(SSPROP_MEDIA_U32, 2));

    story.journal.notification(sampleDiskAlert(4711, 1));
    story.journal.change(&disk, &failed);
    story.journal.change(&drive, &bare); // first insertion, then the one with what the disks tell
    story.journal.change(&bare, &drive);
    story.journal.incomplete(sampleSingleDisk(0, 1));
    // The next alert tells what the one before it led to; a new refresh compares with what is known now.
    story.journal.notification(sampleDiskAlert(2049, 1));
    story.journal.change(&failed, &failed);
    const Object fresh = sampleDisk(0, 2, 4, 2);
    story.journal.change(nullptr, &fresh);
    const Object grown = with(fresh, u64(SSPROP_SIZE_U64, 4000787030017));
    story.journal.change(&fresh, &grown); // still new
    story.journal.change(&bare, nullptr);
    story.journal.pollEnd();
    story.journal.pollEnd();
    EXPECT_THAT(
        story.lines(),
        ElementsAre("4711 alert 4711 disk 1 on controller 0",
                    " disk 1 on controller 0: discovered singly, arrived without identity (3 values); the "
                    "data engine cannot place it",
                    " disk 1 on controller 0: state online -> failed, status ok -> critical",
                    " 1 object discovered again without change", "2049 disk removed disk 1 on controller 0",
                    " disk 2 on controller 0: new in the data engine",
                    " virtual disk 0 on controller 0: gone from the data engine",
                    " 1 object discovered again without change"));
    const MonitorSummary counts = story.journal.counts();
    EXPECT_EQ(counts.refreshed, 6U);
    EXPECT_EQ(counts.changed, 3U);
    EXPECT_EQ(counts.incomplete, 1U);
}

TEST(MonitorTextPrinter, changesTellStateFirstAndNumbersWhereWordsAreTheSame)
{
    std::ostringstream out;
    MonitorTextPrinter printer(out, Style{});
    const Object before = sampleDisk(0, 1, 4, 2);
    Object after = with(before, u64(SSPROP_SIZE_U64, 4000787030017));
    after = with(without(after, SSPROP_BUSPROTOCOL_U32), u32(SSPROP_STATUS_U32, 4));
    after = with(after, u32(SSPROP_MEDIA_U32, 2));
    printer.refresh({{}, RefreshKind::Changed, after, differences(before, after)});
    EXPECT_EQ(out.str(),
              "          disk 1 on controller 0: status ok -> critical, size 4000787030016 -> 4000787030017, "
              "media nothing -> SSD, bus SAS -> nothing\n");
}
