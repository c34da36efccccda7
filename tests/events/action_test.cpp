#include "common/PluginTest.h"
#include "entry/CCommandHandler.h"
#include "events/CMarvelEvtObserver.h"
#include "events/IEventManager.h"

#include <sdo.h>

#include <map>

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
    const Lines steps{"discover()", "discoverController()", "discoverPD()", "discoverAllPDs()",
                      "discoverAllVDs()"};
    const Lines none, one{"discoverPD()", "discoverAllVDs()"}, all{"discoverAllPDs()", "discoverAllVDs()"},
        whole{"discover()", "discoverController()", "discoverAllPDs()", "discoverAllVDs()"};
    const std::map<unsigned int, Lines> actions = {
        {2050, one}, {2098, one}, {2099, one}, {2158, one}, {2053, all}, {2054, all},   {2057, all},
        {2064, all}, {2073, all}, {2088, all}, {2091, all}, {2092, all}, {2058, whole}, {2085, whole}};
    for (unsigned int alert = 2045; alert < 2165; ++alert) {
        clear();
        const unsigned int type = alert % 2 == 0 ? SDO_OBJTYPE_VIRTUAL_DISK : SDO_OBJTYPE_CONTROLLER;
        EXPECT_EQ(Observer().generateActionCommand(alert, type, 101, 0, 20), 1);
        Lines taken;
        for (const std::string& line : log())
            for (const std::string& step : steps)
                if (line == "ZARNEK:ISubSystemManager::" + step + " ENTRY ")
                    taken.push_back(step);
        const auto action = actions.find(alert);
        EXPECT_EQ(taken, action == actions.end() ? none : action->second) << alert;
    }
    EXPECT_EQ(CCommandHandler::m_gQelvoGlobalCntrlNumber, 0U) << "no new controllers";
}

} // namespace
