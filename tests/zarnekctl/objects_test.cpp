// What the libraries hold, read, compared and shown: values of each type, objects that have no place in the
// tree, and what a discovery or an alert changes.
#include "zarnekctl/host/SdoReader.h"
#include "zarnekctl/monitor/MonitorJournal.h"
#include "zarnekctl/monitor/MonitorTextPrinter.h"
#include "zarnekctl/print/DotPrinter.h"
#include "zarnekctl/print/JsonPrinter.h"
#include "zarnekctl/print/JsonValues.h"
#include "zarnekctl/print/TablePrinter.h"
#include "zarnekctl/print/TreePrinter.h"
#include <morlan.h>
#include <mv.h>
#include <sdo.h>

#include <gmock/gmock.h>

#include <sstream>

using namespace zarnekctl;
using testing::HasSubstr;

namespace
{

template <typename Value>
void addProperty(Object& object, unsigned int id, unsigned int type, const Value& value)
{
    Property& property = object.properties.emplace_back();
    property.id = id;
    property.type = type;
    property.value = value;
}

// With 32-bit numbers as properties, by their ids.
Object objectWith(const std::vector<std::pair<unsigned int, std::uint32_t>>& numbers,
                  const std::string& identity = "")
{
    Object object{{}, identity};
    for (const auto& [id, number] : numbers)
        addProperty(object, id, SDO_TYPE_U32, std::uint64_t{number});
    return object;
}

template <typename Number>
std::string bytesOf(Number number)
{
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

std::string printed(const Printer& printer, const System& system)
{
    std::ostringstream out;
    printer.print(system, out);
    return out.str();
}

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

TEST(SdoReader, eachTypeReachesJsonWhole)
{
    constexpr unsigned short id = 31000;
    const std::uint64_t exact = 1ULL << 53;
    const std::uint64_t largest = 18446744073709551615U;
    const struct {
        unsigned char type;
        std::string bytes;
        Json expected;
    } rows[] = {
        {SDO_TYPE_BOOLN, "\1", {{"value", 1}}},
        {SDO_TYPE_S16, bytesOf(std::int16_t{-300}), {{"value", -300}}},
        {SDO_TYPE_U8, "\xff", {{"value", 255}}},
        {SDO_TYPE_U32, bytesOf(std::uint32_t{7}), {{"value", 7}}},
        {SDO_TYPE_U32, bytesOf(std::uint16_t{7}), {{"value", nullptr}, {"bytes", "0700"}}}, // another width
        {SDO_TYPE_U64, bytesOf(exact), {{"value", exact}}},
        {SDO_TYPE_U64, bytesOf(largest), {{"value", largest}, {"text", "18446744073709551615"}}},
        {SDO_TYPE_BINARY_DATA, bytesOf(0x80000000U), {{"value", 0x80000000U}}},
        {SDO_TYPE_ASTRING, std::string("name\0rest", 9), {{"value", "name"}}},
        {SDO_TYPE_ASTRING, std::string(256, 'x'), {{"value", std::string(256, 'x')}}}, // no terminator
        {SDO_TYPE_ASTRING, "A\xff\x01", {{"value", "A\\xff\\x01"}, {"bytes", "41ff01"}}},
        {SDO_TYPE_NEXUS_U32,
         bytesOf(SSPROP_GLOBALCONTROLLERNUM_U32) + bytesOf(SSPROP_SLOTNUM_U32),
         {{"value", {SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_SLOTNUM_U32}}}},
        {200, "\x01\xff", {{"value", nullptr}, {"bytes", "01ff"}}}};
    for (const auto& row : rows) {
        void* handle = SMSDOConfigAlloc();
        ASSERT_EQ(SMSDOConfigAddData(handle, id, row.type, row.bytes.data(),
                                     static_cast<unsigned int>(row.bytes.size()), 1),
                  0);
        const Json json = propertiesJson(readObject(handle)).at("property_31000");
        SMSDOConfigFree(handle);
        Json expected = {{"id", id}, {"type", row.type}};
        expected.update(row.expected);
        EXPECT_EQ(json, expected);
    }
}

TEST(Printers, showWhatHasNoPlaceInTheTree)
{
    const Object controller =
        objectWith({{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_CONTROLLER}, {SSPROP_GLOBALCONTROLLERNUM_U32, 0}});
    const Object odd = objectWith({{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK},
                                   {SSPROP_GLOBALCONTROLLERNUM_U32, 0},
                                   {SSPROP_SLOTNUM_U32, 1},
                                   {SSPROP_STATE_U32, SDO_STATE_FAILED},
                                   {SSPROP_STATUS_U32, SDO_STATUS_CRITICAL},
                                   {SSPROP_MEDIA_U32, 77},
                                   {SSPROP_NEGOTIATEDSPEED_U32, 0xFFFFFFFF}});
    const Object lost = objectWith({{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK},
                                    {SSPROP_GLOBALCONTROLLERNUM_U32, 5},
                                    {SSPROP_SLOTNUM_U32, 2}});
    const Object virtualDisk =
        objectWith({{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_VIRTUAL_DISK}, {SSPROP_LOGICALDRIVENUM_U32, 0}});
    System system;
    system.nodes = {{controller, -1, {}, 1, false},
                    {odd, 0, {}, 1, false},
                    {lost, -1, {}, 1, false},
                    {virtualDisk, 0, {1, 2, 4}, 1, false},
                    {objectWith({{SSPROP_SLOTNUM_U32, 7}}), -1, {}, 1, true}};

    const std::string tree = printed(TreePrinter(Style{}), system);
    EXPECT_THAT(tree,
                HasSubstr("|- 1 disk\n|  `- disk 1  failed  critical  -  code 77  -  not known  -  -\n"));
    EXPECT_THAT(tree, HasSubstr("  linked with disks 1-2, disk 7\n"));
    EXPECT_THAT(tree, HasSubstr("outside the tree\n   disk 2 on controller 5\n"
                                "   disk 7 on controller ?: arrived without an identity, with 1 value\n"));
    EXPECT_THAT(printed(TablePrinter(Style{}), system), testing::ContainsRegex("\ndisk 2 .*\n[?] disk 7\n$"));
    EXPECT_THAT(printed(DotPrinter(), system),
                HasSubstr("=gray90, label=\"disk 7\"];\n  n0 -> n1;\n  n0 -> n3"));
    const Json json = Json::parse(printed(JsonPrinter(), system));
    EXPECT_EQ(json.at("objects").at(4).at("identity"), nullptr);

    // Colours change no column.
    std::string coloured = printed(TreePrinter(Style{false, true}), system);
    EXPECT_THAT(coloured, HasSubstr("\033[1;31mfailed"));
    for (std::size_t at = coloured.find('\033'); at != std::string::npos; at = coloured.find('\033'))
        coloured.erase(at, coloured.find('m', at) - at + 1);
    EXPECT_EQ(coloured, tree);
}

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
    const mvsim_event event{0, MV_EVENT_PHYSICAL_DISK, 201, 1, 5}; // adapter, class, code, device, sequence
    journal.event(event);
    journal.pollEnd();
    journal.notification(alert);
    EXPECT_EQ(journal.counts().lastSequence, 0U);
    journal.event(event);
    journal.notification(alert);
    EXPECT_EQ(journal.counts().lastSequence, 5U);
}
