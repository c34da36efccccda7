#include "common/PluginTest.h"
#include "morlan/morlan_inspect.h"
#include "vendor/CLibraryLoader.h"
#include "vendor/CLibraryManager.h"
#include "vendor/CMarvellVendorLibrary.h"

#include <sdo.h>
#include <zarnek_ini.h>

#include <dlfcn.h>

using testing::Contains;

// A library that sees no controller is never given back, by design.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:CLibraryLoader::createLibModelObj";
}

namespace
{

using Library = CMarvellVendorLibrary;

template <auto Accessor>
const void* of(const Library& library)
{
    return reinterpret_cast<const void*>((library.*Accessor)());
}

struct EntryPoint {
    std::string symbol, inMessage;
    bool testsItself;
    const void* (*pointer)(const Library& library);
};

const EntryPoint ENTRY_POINTS[] = {
    {"MV_API_Initialize", "m_gMV_API_INITIALIZE", true, of<&Library::getMVInitAPI>},
    {"MV_API_Finalize", "m_gMV_API_FINALIZE", false, of<&Library::getMVFinalizeAPI>},
    {"MV_API_Version", "m_gMV_API_VERSION", false, of<&Library::getMVVersionAPI>},
    {"MV_Adapter_GetCount", "m_gMV_ADAPTER_GETCOUNT", false, of<&Library::getMVAdpCountAPI>},
    {"MV_Adapter_GetInfo", "m_gMV_ADAPTER_GETINFO", false, of<&Library::getMVAdpGetInfoAPI>},
    {"MV_Adapter_GetConfig", "m_gMV_ADAPTER_GETINFO", false, of<&Library::getMVAdpGetConfigAPI>},
    {"MV_PD_GetHDInfo_Ext", "m_gMV_PD_GETHDINFO_EXT", false, of<&Library::getMVPDGetHDInfoAPI>},
    {"MV_PD_GetConfig", "m_gMV_PD_GETCONFIG", false, of<&Library::getMVPDGetConfigAPI>},
    {"MV_PD_GET_SMART_INFO", "m_gMV_PD_GET_SMART_INFO", false, of<&Library::getMVPDGetSmartInfoAPI>},
    {"MV_PD_GetHDRaidStatus", "m_gMV_PD_GET_HD_RAID_STATUS", true, of<&Library::getMVPDGetHDRaidStatusAPI>},
    {"MV_PD_GetFreeSpaceInfo", "m_gMV_PD_GET_FREE_SPACE_INFO", true,
     of<&Library::getMVPDGetFreeSpaceInfoAPI>},
    {"MV_LD_GetInfo", "m_gMV_LD_GET_INFO", true, of<&Library::getMVLDGetInfoAPI>},
    {"MV_LD_GetConfig", "m_gMV_LD_GET_CONFIG", true, of<&Library::getMVLDGetConfigAPI>},
    {"MV_PassThrough_ATA", "m_gMV_PASSTHROUGH_ATA", false, of<&Library::GetMVPassThroughATAAPI>},
    {"MV_Adapter_Get_OEM_Data", "m_gMV_ADAPTER_GET_OEM_DATA", true, of<&Library::GetMVAdpGetOEMDataAPI>},
    {"MV_EVT_GetEvent", "m_gMV_EVT_GETEVENT", false, of<&Library::GetMVEVTGetEventAPI>},
    {"MV_EVT_FlushEvent", "m_gMV_EVT_FLUSHEVENT", false, of<&Library::GetMVEVTFlushEventAPI>},
};

using LibraryTest = PluginTest;

TEST_F(LibraryTest, BindsWhatTheFileHas)
{
    morlan_fail_call("SMLibLoad", 1, 0, 0); // the direct open decides
    EXPECT_EQ(Library("9", "libzarnek_none").setLibHandle(), 0);
    for (std::size_t row = 0; row <= std::size(ENTRY_POINTS); ++row) {
        const std::string missing = row < std::size(ENTRY_POINTS) ? ENTRY_POINTS[row].symbol : "";
        const std::string name = missing.empty() ? "libmvsim" : "libmv_no_" + missing;
        // Once open, a copy of the simulator is found by its bare name, wherever the loader would search.
        EXPECT_NE(dlopen((LIBRARY_FOLDER "/" + name + ".so").c_str(), RTLD_LAZY), nullptr);
        SCOPED_TRACE(name);
        Library library("9", name);
        clear();
        EXPECT_EQ(library.setLibHandle() + library.setAPIName(), 0);
        Lines said = {"ZARNEK:IVendorLibrary::loadLibrary(): loadLibrary => " + name + ".so"};
        for (const EntryPoint& entry : ENTRY_POINTS) {
            if (missing == (entry.testsItself ? entry.symbol : "MV_API_Initialize"))
                said.push_back("ZARNEK:CMarvellLibrary::setMarvellAPI(): Failed to Retrieve Handle to " +
                               entry.inMessage + ".");
            EXPECT_EQ(entry.pointer(library), dlsym(library.getLibHandle(), entry.symbol.c_str()));
            EXPECT_EQ(entry.pointer(library) == nullptr, missing == entry.symbol) << entry.symbol;
        }
        EXPECT_EQ(messages(), said);
    }
    EXPECT_EQ(morlan_call_count("SMLibUnLoad"), 18U) << "each object that has a library";
}

TEST_F(LibraryTest, ManagerKeepsALibraryThatSeesAController)
{
    struct Case {
        std::string id, name, scenario;
        unsigned int loads, kept;
        std::size_t calls;
    };
    for (const Case& c :
         {Case{"9a", "libmvsim", "", 1, 1, 2},
          Case{"9", "libmvsim", R"("answers": {"MV_Adapter_GetCount": {"count": 256}})", 1, 0, 2},
          Case{"8", "libmvsim", "", 0, 0, 0}, Case{"9", "", "", 0, 0, 0},
          Case{"9", "libzarnek_none_and_beyond_31_characters", "", 1, 0, 0}}) {
        SCOPED_TRACE(c.id + c.name + c.scenario);
        loadAdapter("", c.scenario);
        nameVendorLibrary(c.name, c.id);
        CLibraryManager* const manager = CLibraryManager::getUniqueInstance();
        const unsigned int loads = morlan_call_count("SMLibLoad");
        const unsigned int unloads = morlan_call_count("SMLibUnLoad");
        clear();
        EXPECT_EQ(manager->initializeLibrary(), 0);
        EXPECT_THAT(messages(), Contains("ZARNEK: stg::readFromIniFile tempVendorInfo->m_LibName" +
                                         c.name.substr(0, INI_VALUE_LIMIT)));
        EXPECT_EQ(vendorCalls().size(), c.calls);
        EXPECT_EQ(manager->accessLibObjMultimap()->size(), c.kept);
        EXPECT_EQ(manager->getLibHandleforVendorID(SDO_VIL_NUMBER) != nullptr, c.kept == 1);
        CLibraryManager::destroyMe();
        EXPECT_EQ(morlan_call_count("SMLibLoad") - loads, c.loads);
        EXPECT_EQ(morlan_call_count("SMLibUnLoad") - unloads, c.kept) << "what is dropped stays loaded";
    }
}

TEST_F(LibraryTest, LoaderWorksTheLastHalfOfItsListFromTheEnd)
{
    for (unsigned int count = 0; count <= 5; ++count) {
        CLibraryLoader loader;
        for (unsigned int vendor = 0; vendor < count; ++vendor) {
            nameVendorLibrary("libnone" + std::to_string(vendor));
            loader.initializeLibLoader();
        }
        const unsigned int loads = morlan_call_count("SMLibLoad");
        clear();
        EXPECT_EQ(loader.createAllLibObjs(), 0);
        EXPECT_EQ(morlan_call_count("SMLibLoad") - loads, count - count / 2);
        EXPECT_EQ(loader.getVendorInfo().size(), count / 2);
        EXPECT_EQ(log().back(), "ZARNEK:CLibraryLoader:setVendorInfo() EXIT ") << "the other function's name";
    }
}

TEST_F(LibraryTest, MapOperations)
{
    constexpr unsigned int OURS = SDO_VIL_NUMBER, OTHERS = 8;
    Library* libraries[4];
    for (Library*& library : libraries) {
        library = new Library("9", "libmvsim");
        library->setLibHandle();
    }
    const auto& [first, other, second, update] = libraries;
    CLibraryManager manager;
    for (const auto& [id, library] :
         {CLibraryManager::LibraryPair{OURS, first}, {OTHERS, other}, {OURS, second}})
        manager.insertIntoMap(id, library);
    EXPECT_EQ(manager.getVendorLibInstance(OURS), first);
    CLibraryManager::LibraryPair pair{OURS, update};
    manager.updateLibraryMultiMap(pair);
    pair.first = OTHERS;
    manager.removeElementFromMap(pair);
    EXPECT_EQ(*manager.accessLibObjMultimap(), (CLibraryManager::LibraryMultimap{{OURS, update}}));
    EXPECT_EQ(morlan_call_count("SMLibUnLoad"), 1U)
        << "the first of the updated id, and none that was removed";
    manager.insertIntoMap(OTHERS, update); // a second place of one library
    manager.removeAllElementsFromMap();
    EXPECT_EQ(morlan_call_count("SMLibUnLoad"), 2U);
    delete other;
    delete second;
}

} // namespace
