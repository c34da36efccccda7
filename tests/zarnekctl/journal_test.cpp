// What a discovery changed, told property by property.
#include "zarnekctl/monitor/MonitorJournal.h"
#include "zarnekctl/monitor/MonitorTextPrinter.h"
#include <sdo.h>

#include <gmock/gmock.h>

#include <sstream>

using namespace zarnekctl;

namespace
{

Property number(unsigned int id, std::uint32_t value)
{
    return {id, SDO_TYPE_U32, std::uint64_t{value}};
}

Object diskWith(const Property& first, const Property& second)
{
    return {{number(SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK), number(SSPROP_GLOBALCONTROLLERNUM_U32, 0),
             number(SSPROP_SLOTNUM_U32, 1), first, second},
            "disk 1"};
}

} // namespace

TEST(Journal, propertiesComeAndGo)
{
    std::ostringstream out;
    MonitorTextPrinter printer(out, Style{});
    MonitorJournal journal(&printer, [] { return std::nullopt; });
    const Object before = diskWith(number(SSPROP_BUSPROTOCOL_U32, 8), number(SSPROP_STATUS_U32, 2));
    const Object between = diskWith(number(SSPROP_MEDIA_U32, 1), number(SSPROP_STATUS_U32, 1));
    const Object after = diskWith(number(SSPROP_MEDIA_U32, 2), number(SSPROP_STATUS_U32, 4));
    journal.change(&before, &between);
    journal.change(&between, &after); // only the first state and the last count
    journal.pollEnd();
    journal.pollEnd();
    EXPECT_EQ(out.str(), "          disk 1 on controller 0: status ok -> critical, media nothing -> SSD, bus "
                         "SAS -> nothing\n");
}
