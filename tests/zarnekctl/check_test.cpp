// The findings of the configuration check, and the mapping file's grammar behind them.
#include "common/TempFolder.h"
#include "morlan/morlan_inspect.h"
#include "zarnekctl/MappingCheck.h"
#include "zarnekctl/PrivateIniCheck.h"

#include <gmock/gmock.h>

using namespace zarnekctl;
using testing::ElementsAreArray;

namespace
{

const std::string sequence = "[EventSequenceNumber]\nSequenceNumber=7\n";

// "line effect what" for each finding; the remedies are checked for presence only.
std::vector<std::string> told(const Findings& findings)
{
    std::vector<std::string> lines;
    for (const Finding& finding : findings) {
        const char* effect = finding.effect == Effect::Surprise       ? "surprise"
                             : finding.effect == Effect::NoMonitoring ? "no monitoring"
                                                                      : "no discovery";
        EXPECT_FALSE(finding.remedy.empty());
        lines.push_back(std::to_string(finding.line) + " " + effect + ": " + finding.what);
    }
    return lines;
}

} // namespace

TEST(MappingCheck, findsEachMistakeAtItsLine)
{
    const struct {
        std::string content;
        std::vector<std::string> findings;
    } rows[] = {
        {"; comment\n\n[PhysicalDevice]\n201=2050\n" + sequence, {}},
        {"[PhysicalDevice]\n 2 0 1 = 2050\n" + sequence, {}},
        {sequence + "[PhysicalDevice]\n201=2050\n \t\n",
         {"5 no monitoring: a line of nothing but white space, which ends the thread that reads the file"}},
        {"[PhysicalDevice]\n201=2050\n   \n" + sequence,
         {"3 no discovery: a line of nothing but white space, which ends the thread that reads the file"}},
        {"[PhysicalDevice]\r\n201=2050\r\n\r\n" + sequence,
         {"1 surprise: the line ends in CR LF, which makes each empty line a fatal one",
          "3 no discovery: an empty line with CR LF line end, which ends the thread that reads the file"}},
        {"201=2050\n[Adapter]\n" + sequence,
         {"1 surprise: the key \"201\" stands ahead of the first section, where it counts in every section"}},
        {"[Adapter]\n1=2048\n2=2047\n3=abc\n4=4294967295\n5=\n" + sequence,
         {"3 surprise: \"2047\" is no alert number, so that event 2 counts as unmapped",
          "4 surprise: \"abc\" is no alert number, so that event 3 counts as unmapped",
          "5 surprise: \"4294967295\" is no alert number, so that event 4 counts as unmapped",
          "6 surprise: \"\" is no alert number, so that event 5 counts as unmapped"}},
        {"[Adapter]\n1=2048;warning\n" + sequence,
         {"2 surprise: what stands behind the number in \"2048;warning\" is passed over; the alert is 2048"}},
        {"[Adapter]\n1=2048\n01=2048\n70000=2048\nx=2048\n" + sequence,
         {"3 surprise: no event has the code \"01\"", "4 surprise: no event has the code \"70000\"",
          "5 surprise: no event has the code \"x\""}},
        {"[Adapter]\n1=2048\n[PhysicalDevice]\n1=2050\n[Adapter]\n1=2051\n" + sequence,
         {"6 surprise: the key \"1\" stands in this section already, and line 2 counts"}},
        {"[adapter]\n1=2048\n[Elsewhere]\n[Adapter]\n1=2048\n" + sequence,
         {"1 surprise: nothing reads a section with the name \"adapter\"",
          "3 surprise: nothing reads a section with the name \"Elsewhere\""}},
        {"\xef\xbb\xbf[Adapter]\n[PhysicalDevice]\n201=2050\n" + sequence,
         {"1 surprise: nothing reads a section with the name \"Adapter]\""}},
        {"[Adapter]\n1=2048\n[Virtual\nnonsense\n" + sequence,
         {"3 surprise: a section header with one bracket only, which is read as a key",
          "4 surprise: a line without \"=\", which is read as key and value at once"}},
        {"[Adapter]\n1=2048\n[EventSequenceNumber]\nOther=1\n",
         {"3 no monitoring: the sequence number is missing, so that no alert would ever pass",
          "4 surprise: nothing reads the key \"Other\" in this section"}},
        {"[Adapter]\n1=2048\n",
         {"1 no monitoring: the sequence number is missing, so that no alert would ever pass"}},
        {"[Adapter]\n1=2048\n[EventSequenceNumber]\nSequenceNumber=4294967295\n",
         {"4 no monitoring: the sequence number 4294967295 reads like a missing one, so that no alert would "
          "ever "
          "pass"}},
        {"[Adapter]\n1=2048\n[EventSequenceNumber]\nSequenceNumber=none\n",
         {"4 surprise: the sequence number \"none\" reads as 0"}},
        {sequence,
         {"1 no monitoring: no event code is mapped to an alert number, so that no alert would ever be "
          "sent"}},
    };
    for (const auto& row : rows)
        EXPECT_THAT(told(MappingCheck(MappingFile(row.content)).run()), ElementsAreArray(row.findings))
            << row.content;
}

TEST(MappingFile, looksUpAsThePluginDoes)
{
    const struct {
        const char* content;
        const char* section;
        unsigned int code;
        std::uint32_t alert; // 0: unmapped
    } rows[] = {{"[Adapter]\n7=2048\n7=2049\n", "Adapter", 7, 2048},
                {"[Adapter]\n7=2048\n", "PhysicalDevice", 7, 0},
                {"7=2050\n[Adapter]\n7=2048\n", "Adapter", 7, 2050},
                {"7=2050\n[Adapter]\n", "VirtualDevice", 7, 2050},
                {" [ Ada\tpter ] \n 1 2 = 20 48", "Adapter", 12, 2048},
                {"[Adapter]\n \n7=2048\n", "Adapter", 7, 0},
                {"[Adapter]\n7=2048\n \n", "Adapter", 7, 2048},
                {"[Adapter]\n2050\n", "Adapter", 2050, 2050},
                {"x[Adapter]\n7=2048\n", "Adapter]", 7, 2048},
                {"][Adapter\n7=2048\n", "Adapter", 7, 2048},
                {"[Adapter]\n;7=2048\n7=2049 ; old\n", "Adapter", 7, 2049},
                {"[Adapter]\n7=2047\n", "Adapter", 7, 0}};
    for (const auto& row : rows)
        EXPECT_EQ(MappingFile(row.content).alertNumber(row.section, row.code).value_or(0), row.alert)
            << row.content;
}

TEST(PrivateIniCheck, findsWhatKeepsTheVendorLibraryAway)
{
    const std::string id = "[VendorID]\nMarvell=9\n";
    const std::string longName(32, 'x');
    const struct {
        std::string content;
        std::vector<std::string> findings;
    } rows[] = {
        {id + "[VendorLibName]\nLinux_9=libmvsim\n", {}},
        {"; two comments\n# of both kinds\n\n" + id + "[VendorLibName]\r\nLinux_9=libmvsim\r\n", {}},
        {"[VendorLibName]\nLinux_9=libmvsim\n", {"1 no discovery: the vendor id is missing"}},
        {"[VendorID]\nMarvell=8\n[VendorLibName]\nLinux_8=libmvsim\n",
         {"2 no discovery: the vendor id \"8\" is not the number of the one known vendor"}},
        {id, {"1 no discovery: the vendor library has no name"}},
        {id + "[VendorLibName]\nLinux_9=\n", {"4 no discovery: the vendor library has no name"}},
        {id + "[VendorLibName]\nLinux_9=" + longName + "\n",
         {"4 no discovery: the vendor library's name has 32 characters and is cut to 31"}},
        {id + "[VendorLibName]\nLinux_9=libmvsim.so\n",
         {"4 no discovery: the vendor library's name ends in .so, which is added once more"}},
        {"Marvell=9\nnonsense\n" + id + "Other=1\nMarvell=9\n[VendorLibName]\nLinux_9=libmvsim\n",
         {"1 surprise: a key ahead of the first section, which nothing reads",
          "2 surprise: a line without \"=\", which nothing reads",
          "5 surprise: nothing reads the key \"Other\" in section \"VendorID\"",
          "6 surprise: the key \"Marvell\" stands in this section already, in line 4"}},
    };
    const TempFolder folder;
    for (const auto& row : rows) {
        folder.write("private.ini", row.content);
        EXPECT_THAT(told(checkPrivateIni(folder.path("private.ini"))), ElementsAreArray(row.findings))
            << row.content;
    }
    EXPECT_EQ(worstOf(checkPrivateIni(folder.path("nowhere"))), Effect::NoDiscovery);
    morlan_reset();
}

TEST(Finding, isOneLineWhateverTheFileHolds)
{
    const Finding finding{3, Effect::Surprise, "the key \"a\x1b\nb\"", "delete it"};
    EXPECT_EQ(finding.text("x.ini"), "x.ini:3: warning: the key \"a\\x1b\\x0ab\"; delete it");
}
