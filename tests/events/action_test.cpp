#include "common/PluginTest.h"
#include "entry/CCommandHandler.h"
#include "events/CMarvelEvtObserver.h"
#include "events/IEventManager.h"

#include <regex>

namespace
{

using ActionTest = PluginTest;

struct Observer : CMarvelEvtObserver {
    Observer() { m_pfnTakeAction = &IEventManager::takeAction; }
};

TEST_F(ActionTest, TheAlertNumberAloneDecidesWhatIsDiscovered)
{
    loadAdapter(R"("disks": [{"id": 20, "slot": 7}], "virtualDisks": [{"id": 6, "logicalDrive": 4}])");
    CCommandHandler::getUniqueInstance()->initialize();
    unsigned int total = 0;
    CCommandHandler::getUniqueInstance()->discoverAllControllers(101, &total);
    const std::regex wanted("discover\\w*\\(\\) ENTRY|generateAction.*Alert Number|PD.*::execute\\(\\) ENTRY|"
                            "setArguments\\(\\) ENTRY|Insert");
    const std::string controller = "769/9 24600=101", under = ", under " + controller + '|';
    const std::string drive = "773/9 24600=101 24629=4" + under;
    const std::string args = "setArguments() ENTRY |execute() ENTRY |";
    const std::string drives = "discoverAllVDs() ENTRY |" + drive + drive;
    const std::string one = args + "discoverPD() ENTRY |incomplete" + under + drives;
    const std::string disks = "discoverAllPDs() ENTRY |772/9 24600=101 24810=7" + under + drives;
    const std::string all = args + disks;
    const std::string whole =
        "discover() ENTRY |discoverController() ENTRY |" + controller + ", under none|" + disks;
    const std::map<unsigned int, std::string> actions = {
        {2050, one}, {2098, one}, {2099, one}, {2158, one}, {2053, all}, {2054, all},   {2057, all},
        {2064, all}, {2073, all}, {2088, all}, {2091, all}, {2092, all}, {2058, whole}, {2085, whole}};
    for (unsigned int alert = 2045; alert < 2165; ++alert) {
        clear();
        EXPECT_EQ(Observer().generateActionCommand(alert, alert % 2 == 0 ? 773 : 769, 101, 0, 20), 1);
        std::string said;
        for (const std::string& line : trace())
            if (std::regex_search(line, wanted))
                said += (line[0] == 'r' ? line.substr(20, line.find(')') - 20)
                                        : line.substr(line.rfind(':') + 1)) +
                        '|';
        const auto action = actions.find(alert);
        const std::string number = " " + std::to_string(alert) + '|';
        EXPECT_EQ(said, number + (action == actions.end() ? number : action->second));
    }
    EXPECT_EQ(CCommandHandler::m_gQelvoGlobalCntrlNumber, 102U) << "no new controllers";
}

} // namespace
