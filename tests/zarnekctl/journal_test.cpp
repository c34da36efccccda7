// The story that the journal makes of single reports, among them such as no plug-in of today sends.
#include "sdo.h"
#include "zarnekctl/MonitorJournal.h"
#include "zarnekctl/MonitorTextPrinter.h"

#include <gmock/gmock.h>

#include <regex>
#include <sstream>

using namespace zarnekctl;
using testing::ElementsAre;

namespace
{

// A journal whose output is text, with the time of day and the columns taken away.
class Story : public testing::Test
{
  protected:
    std::vector<std::string> lines() const
    {
        std::vector<std::string> lines;
        std::istringstream in(m_out.str());
        for (std::string line; std::getline(in, line);)
            lines.push_back(std::regex_replace(line, std::regex("^[0-9:]{8}  | +(?= )"), ""));
        return lines;
    }

    std::ostringstream m_out;
    MonitorTextPrinter m_printer{m_out, Style{}};
    MonitorJournal m_journal{&m_printer, [] {
                                 return MappingFile("[PhysicalDevice]\n201=2050\n202=2049\n"
                                                    "[EventSequenceNumber]\nSequenceNumber=10\n");
                             }};
};

Property number(unsigned int id, std::uint32_t value)
{
    return {id, SDO_TYPE_U32, std::uint64_t{value}};
}

Object diskWith(std::uint32_t slot, const std::vector<Property>& more)
{
    Object disk{{number(SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK),
                 number(SSPROP_GLOBALCONTROLLERNUM_U32, 0),
                 number(SSPROP_SLOTNUM_U32, slot),
                 {SSPROP_NEXUS_U32, SDO_TYPE_NEXUS_U32, std::vector<std::uint32_t>{SSPROP_SLOTNUM_U32}}}};
    disk.properties.insert(disk.properties.end(), more.begin(), more.end());
    return disk;
}

Object alertOfDisk3()
{
    const auto disk = std::make_shared<const Object>(diskWith(3, {}));
    return {
        {number(SSPROP_ALERTNUMBER_U32, 2050), {SSPROP_CONTROLNOTIFY_SDO, SDO_TYPE_SDOCONFIG, Nested{disk}}}};
}

} // namespace

TEST_F(Story, alertsTakeTheSequenceNumberOfTheirOwnEvent)
{
    constexpr unsigned int diskClass = 2;
    const mvsim_event events[] = {
        {0, diskClass, 201, 3, 9},  // old: an earlier run told it
        {0, diskClass, 777, 3, 11}, // unmapped
        {0, diskClass, 202, 3, 12}, // another alert number
        {1, diskClass, 201, 3, 13}, // another adapter
        {0, diskClass, 201, 4, 14}, // another disk
        {0, diskClass, 201, 3, 15}, {0, diskClass, 201, 3, 16},
    };
    for (const mvsim_event& event : events)
        m_journal.event(event);
    for (int alert = 0; alert < 3; ++alert)
        m_journal.notification(alertOfDisk3()); // for the third no event is left
    m_journal.event({0, diskClass, 201, 3, 17});
    m_journal.pollEnd();
    m_journal.notification(alertOfDisk3()); // not of this poll
    EXPECT_THAT(lines(), ElementsAre("2050 disk failed disk 3 on controller 0 sequence 15",
                                     "2050 disk failed disk 3 on controller 0 sequence 16",
                                     "2050 disk failed disk 3 on controller 0",
                                     "2050 disk failed disk 3 on controller 0"));
}

TEST_F(Story, propertiesAndObjectsComeAndGo)
{
    const Object before = diskWith(1, {number(SSPROP_BUSPROTOCOL_U32, 8), number(SSPROP_STATUS_U32, 2)});
    const Object after = diskWith(1, {number(SSPROP_MEDIA_U32, 2), number(SSPROP_STATUS_U32, 4)});
    m_journal.change(&before, &after);
    m_journal.pollEnd();
    m_journal.change(&after, &after); // compared with what is known by now
    m_journal.change(&before, nullptr);
    m_journal.incomplete({{number(SSPROP_LOGICALDRIVENUM_U32, 2)}});
    m_journal.pollEnd();
    m_journal.pollEnd();
    EXPECT_THAT(lines(),
                ElementsAre(" disk 1 on controller 0: status ok -> critical, media nothing -> SSD, bus "
                            "SAS -> nothing",
                            " virtual disk 2 on controller ?: refreshed singly, as 1 value without identity; "
                            "its full object waits for a discovery of all virtual disks",
                            " disk 1 on controller 0: gone from the data engine"));
}
