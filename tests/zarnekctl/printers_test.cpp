// The output forms of discovery, on a system made by hand.
#include "zarnekctl/DotPrinter.h"
#include "zarnekctl/Samples.h"
#include "zarnekctl/TablePrinter.h"
#include "zarnekctl/TreePrinter.h"

#include <gmock/gmock.h>

#include <sstream>

using namespace zarnekctl;
using testing::HasSubstr;
using testing::Not;

namespace
{

constexpr Style plain{};
constexpr Style unicode{true, false};
constexpr Style coloured{true, true};

std::string printed(const Printer& printer, const System& system)
{
    std::ostringstream out;
    printer.print(system, out);
    return out.str();
}

} // namespace

TEST(TreePrinter, drawsTheWholeSystemInAscii)
{
    EXPECT_EQ(printed(TreePrinter(plain), sampleSystem()),
              "controller 0  TALM-Q7  ready  ok  firmware 1.2.3.0004, rebuild rate 50 %\n"
              "|- 3 disks\n"
              "|  |- disk 0  online  ok        4.00 TB  -  SAS  12 Gbit/s  MODEL-0  -\n"
              "|  |- disk 1  failed  critical  4.00 TB  -  SAS  12 Gbit/s  MODEL-1  -\n"
              "|  `- disk 3  other   unknown   4.00 TB  -  SAS  12 Gbit/s  MODEL-3  -\n"
              "`- 1 virtual disk\n"
              "   `- virtual disk 0  degraded  warning  8.00 TB  RAID 5  data  write back  stripe 64 KiB"
              "  linked with disks 0-1, 3\n"
              "outside the tree\n"
              "   disk 7 on controller 5\n"
              "   disk 2 on controller 0: no identity, 3 property values\n"
              "\n"
              "1 controller, 4 disks, 1 virtual disk; need attention:\n"
              "   disk 1 on controller 0          failed    critical\n"
              "   virtual disk 0 on controller 0  degraded  warning\n");
}

TEST(TreePrinter, usesUnicodeAndColoursOnlyWhereTheyCanBeShown)
{
    System system = sampleSystem();
    system.nodes[4].object = with(system.nodes[4].object, text(SSPROP_NAME_ASTRING, "M\u00fcller"));
    const std::string tree = printed(TreePrinter(unicode), system);
    EXPECT_THAT(tree, HasSubstr("├─ 3 disks\n│  ├─ disk 0"));
    EXPECT_THAT(tree, HasSubstr("M\u00fcller"));
    EXPECT_THAT(tree, Not(HasSubstr("\033")));
    EXPECT_THAT(printed(TreePrinter(plain), system), HasSubstr("M\\xc3\\xbcller"));

    // Colours change no column.
    std::string bare = printed(TreePrinter(coloured), system);
    EXPECT_THAT(bare, HasSubstr("\033[1;31mfailed"));
    for (std::size_t at = bare.find('\033'); at != std::string::npos; at = bare.find('\033'))
        bare.erase(at, bare.find('m', at) - at + 1);
    EXPECT_EQ(bare, tree);
}

TEST(TreePrinter, tellsOfSystemsWithoutTroubleOrContent)
{
    EXPECT_EQ(printed(TreePrinter(plain), {}), "0 controllers, 0 disks, 0 virtual disks\n");
    System healthy;
    healthy.nodes = {{sampleController(0), -1, {}, 1, false}, {sampleDisk(0, 0, 4, 2), 0, {}, 1, false}};
    EXPECT_THAT(printed(TreePrinter(plain), healthy), HasSubstr("`- 1 disk\n   `- disk 0"));
    EXPECT_THAT(printed(TreePrinter(plain), healthy), testing::EndsWith("; none reports trouble\n"));
}

TEST(TablePrinter, alignsOneLineForEachObject)
{
    EXPECT_EQ(
        printed(TablePrinter(plain), sampleSystem()),
        "NAME                 SIZE  STATE     STATUS    RAID    MEDIA  BUS      SPEED  LABEL    SERIAL  "
        "REVISION\n"
        "controller 0               ready     ok                       -               TALM-Q7          "
        "1.2.3.0004\n"
        "|-disk 0          4.00 TB  online    ok                -      SAS  12 Gbit/s  MODEL-0  -       -\n"
        "|-disk 1          4.00 TB  failed    critical          -      SAS  12 Gbit/s  MODEL-1  -       -\n"
        "|-disk 3          4.00 TB  other     unknown           -      SAS  12 Gbit/s  MODEL-3  -       -\n"
        "`-virtual disk 0  8.00 TB  degraded  warning   RAID 5  -      -               data\n"
        "disk 7            4.00 TB  online    ok                -      SAS  12 Gbit/s  MODEL-7  -       -\n"
        "? disk 2\n");
}

TEST(DotPrinter, drawsChildrenLinksAndOddNames)
{
    System system = sampleSystem();
    system.nodes[4].object = with(system.nodes[4].object, text(SSPROP_NAME_ASTRING, "say \"hi\" \\ bye"));
    const std::string graph = printed(DotPrinter(), system);
    EXPECT_THAT(graph, testing::StartsWith("digraph storage {\n"));
    EXPECT_THAT(graph, testing::EndsWith("}\n"));
    EXPECT_THAT(graph, HasSubstr("  n0 -> n4;\n"));
    EXPECT_THAT(graph, HasSubstr("  n4 -> n2 [style=dashed"));
    EXPECT_THAT(graph, Not(HasSubstr("-> n5")));
    EXPECT_THAT(graph, HasSubstr("fillcolor=salmon, label=\"disk 1\\nMODEL-1\\n"));
    EXPECT_THAT(graph, HasSubstr("say \\\"hi\\\" \\\\ bye"));
}
