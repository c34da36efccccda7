// Alerts joined with their events, and what a discovery changed, told property by property.
#include "zarnekctl/Objects.h"
#include "zarnekctl/monitor/MonitorJournal.h"
#include "zarnekctl/monitor/MonitorTextPrinter.h"
#include <mv.h>

#include <gmock/gmock.h>

#include <sstream>

using namespace zarnekctl;

namespace
{

using Number = std::pair<unsigned int, std::uint32_t>;

Object diskWith(const Number& first, const Number& second)
{
    return objectWith({{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK},
                       {SSPROP_GLOBALCONTROLLERNUM_U32, 0},
                       {SSPROP_SLOTNUM_U32, 1},
                       first,
                       second},
                      "disk 1");
}

} // namespace

TEST(Journal, propertiesComeAndGo)
{
    std::ostringstream out;
    MonitorTextPrinter printer(out, Style{});
    MonitorJournal journal(&printer, [] { return std::nullopt; });
    const Object before = diskWith({SSPROP_BUSPROTOCOL_U32, SDO_BUS_SAS}, {SSPROP_STATUS_U32, SDO_STATUS_OK});
    const Object between =
        diskWith({SSPROP_MEDIA_U32, SDO_MEDIA_HDD}, {SSPROP_STATUS_U32, SDO_STATUS_UNKNOWN});
    const Object after =
        diskWith({SSPROP_MEDIA_U32, SDO_MEDIA_SSD}, {SSPROP_STATUS_U32, SDO_STATUS_CRITICAL});
    journal.change(&before, &between);
    journal.change(&between, &after); // only the first state and the last count
    journal.pollEnd();
    journal.pollEnd();
    EXPECT_EQ(out.str(), "          disk 1 on controller 0: status ok -> critical, media nothing -> SSD, bus "
                         "SAS -> nothing\n");
}

TEST(Journal, anAlertIsJoinedWithAnEventOfItsOwnPoll)
{
    const MappingFile mapping("[PhysicalDevice]\n201=2050\n[EventSequenceNumber]\nSequenceNumber=0\n");
    MonitorJournal journal(nullptr, [&mapping] { return mapping; });
    const auto disk = std::make_shared<const Object>(
        diskWith({SSPROP_CONTROLLERID_U32, 0}, {SSPROP_STATUS_U32, SDO_STATUS_CRITICAL}));
    Object alert = objectWith({{SSPROP_ALERTNUMBER_U32, 2050}});
    addProperty(alert, SSPROP_CONTROLNOTIFY_SDO, SDO_TYPE_SDOCONFIG, Nested{disk});
    mvsim_event event{};
    event.event_class = MV_EVENT_PHYSICAL_DISK;
    event.device = 1;
    event.sequence = 5;
    event.code = 201;
    journal.event(event);
    journal.pollEnd();
    journal.notification(alert);
    EXPECT_EQ(journal.counts().lastSequence, 0U);
    journal.event(event);
    journal.notification(alert);
    EXPECT_EQ(journal.counts().lastSequence, 5U);
}
