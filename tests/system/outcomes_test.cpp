// What a data engine gets from the built plug-in when the system around it is not as it should be.
#include "system/Engine.h"

#include "common/LeaksByDesign.h"
#include "common/SdoObject.h"

#include "morlan/morlan_inspect.h"
#include "mvsim/api/mvsim_control.h"
#include "ral/ral_inspect.h"

#include <morlan.h>
#include <ral.h>
#include <sdo.h>

#include <dlfcn.h>
#include <gmock/gmock.h>

#include <array>

using testing::ElementsAre;

namespace
{

constexpr char SMALL[] = ZARNEK_SOURCE_DIR "/scenarios/small-server.json";

class OutcomeTest : public testing::Test
{
  protected:
    // Controllers, physical disks, virtual disks and links, after commands 20 and 22; then 25 and 23.
    std::vector<unsigned int> discovered()
    {
        m_engine.loadPlugin();
        EXPECT_EQ(m_engine.send(ZARNEK_CMD_INITIALIZE), 0U);
        m_total = m_engine.discover(0);
        EXPECT_EQ(m_engine.send(ZARNEK_CMD_STOP_MONITORING), 0U);
        EXPECT_EQ(m_engine.send(ZARNEK_CMD_TERMINATE), 0U);
        return content();
    }
    std::vector<unsigned int> content() const
    {
        return {m_engine.objects(SDO_OBJTYPE_CONTROLLER), m_engine.objects(SDO_OBJTYPE_PHYSICAL_DISK),
                m_engine.objects(SDO_OBJTYPE_VIRTUAL_DISK), m_engine.links()};
    }

    Engine m_engine;
    unsigned int m_total = 0;
};

// The outcome of a vendor library that lacks one entry point: the discovery's content, and the alert.
struct MissingEntryPoint {
    const char* symbol;
    std::vector<unsigned int> content;
    bool alert = true;
    bool said = false; // whether its own name is in a message
};

void PrintTo(const MissingEntryPoint& missing, std::ostream* stream)
{
    *stream << missing.symbol;
}

class MissingEntryPointTest : public OutcomeTest, public testing::WithParamInterface<MissingEntryPoint>
{
};

TEST_P(MissingEntryPointTest, ReadsAsSuccessWithAnEmptyAnswer)
{
    const LeaksByDesign droppedLibrary;
    const MissingEntryPoint& missing = GetParam();
    const std::string name = "libno_" + std::string(missing.symbol);
    m_engine.nameVendorLibrary(name);
    // Loaded ahead of the plug-in, so that it has the scenario by the time it is asked.
    void* const library = dlopen((name + ".so").c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    std::array<char, 500> message{};
    const auto load = reinterpret_cast<decltype(&mvsim_load_scenario)>(dlsym(library, "mvsim_load_scenario"));
    ASSERT_EQ(load(ZARNEK_SOURCE_DIR "/scenarios/disk-failure.json", message.data(), message.size()), 0);

    m_engine.loadPlugin();
    EXPECT_EQ(m_engine.send(ZARNEK_CMD_INITIALIZE), 0U);
    m_engine.discover(0);
    EXPECT_EQ(content(), missing.content);
    EXPECT_EQ(m_engine.monitor(), 0U);
    EXPECT_EQ(m_engine.send(ZARNEK_CMD_STOP_MONITORING), 0U);
    EXPECT_EQ(m_engine.send(ZARNEK_CMD_TERMINATE), 0U);
    m_engine.unloadPlugin();
    EXPECT_EQ(m_engine.alerts().size(), missing.alert ? 1U : 0U);

    const auto log = m_engine.log();
    const bool said = std::any_of(log.begin(), log.end(), [](const std::string& line) {
        return line.find("Failed to Retrieve Handle to") != std::string::npos;
    });
    EXPECT_EQ(said, missing.said);
    dlclose(library);
}

const MissingEntryPoint MISSING_ENTRY_POINTS[] = {
    {"MV_API_Initialize", {1, 3, 1, 3}, true, true},
    {"MV_API_Finalize", {1, 3, 1, 3}},
    {"MV_API_Version", {1, 3, 1, 3}},
    {"MV_Adapter_GetCount", {0, 0, 0, 0}, false}, // a library without controllers is dropped
    {"MV_Adapter_GetInfo", {1, 3, 1, 3}},         // lists of the largest size
    {"MV_Adapter_GetConfig", {1, 3, 1, 3}},
    {"MV_PD_GetHDInfo_Ext", {1, 0, 1, 0}},
    {"MV_PD_GetConfig", {1, 0, 1, 0}}, // lists of unequal length
    {"MV_PD_GET_SMART_INFO", {1, 3, 1, 3}},
    {"MV_PD_GetHDRaidStatus", {1, 3, 1, 3}, true, true},
    {"MV_PD_GetFreeSpaceInfo", {1, 3, 1, 3}, true, true},
    {"MV_LD_GetInfo", {1, 3, 0, 0}, true, true},
    {"MV_LD_GetConfig", {1, 3, 0, 0}, true, true},
    {"MV_PassThrough_ATA", {1, 3, 1, 3}},
    {"MV_Adapter_Get_OEM_Data", {1, 3, 1, 3}, true, true},
    {"MV_EVT_GetEvent", {1, 3, 1, 3}, false},
    {"MV_EVT_FlushEvent", {1, 3, 1, 3}},
};
INSTANTIATE_TEST_SUITE_P(Symbols, MissingEntryPointTest, testing::ValuesIn(MISSING_ENTRY_POINTS),
                         [](const auto& instance) { return std::string(instance.param.symbol); });

void* foreignController()
{
    return makeObject({{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_CONTROLLER},
                       {SSPROP_VILNUMBER_U32, 4},
                       {SSPROP_GLOBALCONTROLLERNUM_U32, 0}});
}

TEST_F(OutcomeTest, ForeignObjectsOfTheSameNumberAreLeftAlone)
{
    ASSERT_EQ(RalInsertObject(foreignController(), nullptr), 0);
    m_engine.loadScenario(SMALL);
    EXPECT_THAT(discovered(), ElementsAre(2U, 2U, 1U, 2U));
    EXPECT_TRUE(m_engine.logged("ZARNEK:IController::getControllerObject(): SSPROP_VILNUMBER_U32 is 4"));
    void** list = nullptr;
    unsigned int count = 1;
    void* const foreign = foreignController();
    ASSERT_EQ(RalListAssociatedObjects(foreign, SDO_OBJTYPE_PHYSICAL_DISK, &list, &count), 0);
    EXPECT_EQ(count, 0U) << "disks went under the other layer's controller";
    SMSDOConfigFree(foreign);
}

TEST_F(OutcomeTest, AThreadThatOutlivesItsStopTouchesNothing)
{
    m_engine.loadScenario(SMALL);
    m_engine.loadPlugin();
    ASSERT_EQ(m_engine.send(ZARNEK_CMD_INITIALIZE), 0U);
    m_engine.discover(0);
    ASSERT_EQ(m_engine.monitor(), 0U);
    // No stop works: the subject is deleted under the sleeping thread, which later wakes and leaves.
    morlan_fail_call("SMThreadStop", 1, 0, 7);
    EXPECT_EQ(m_engine.send(ZARNEK_CMD_STOP_MONITORING), 0U);
    EXPECT_TRUE(m_engine.logged("ZARNEK:Thread::stopThread(): Error code (During stopping the Thread) = 7"));
    EXPECT_EQ(morlan_running_threads(), 1U);
    wakeSleeper();
    EXPECT_EQ(morlan_wait_threads(5000), 0);
    EXPECT_EQ(m_engine.send(ZARNEK_CMD_TERMINATE), 0U);
}

} // namespace
