#include "common/DataRows.h"
#include "common/PluginTest.h"
#include "morlan/morlan_inspect.h"
#include "vendor/CLibraryLoader.h"
#include "vendor/CLibraryManager.h"
#include "vendor/CLibraryManager_Helper.h"
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
#define ENTRY_POINT(symbol, accessor, inMessage, testsItself)                                                \
    {#symbol, #inMessage, testsItself, of<&Library::accessor>},
#include "vendor/entry-points.txt"
#undef ENTRY_POINT
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
    for (const auto& row : dataRows("tests/vendor/libraries.json")) {
        SCOPED_TRACE(row.dump());
        const std::string name = row.at("name");
        const unsigned int kept = row.at("kept");
        loadAdapter("", row.value("top", ""));
        nameVendorLibrary(name, row.at("vendor"));
        CLibraryManager* const manager = CLibraryManager::getUniqueInstance();
        const unsigned int loads = morlan_call_count("SMLibLoad");
        const unsigned int unloads = morlan_call_count("SMLibUnLoad");
        clear();
        EXPECT_EQ(manager->initializeLibrary(), 0);
        EXPECT_THAT(messages(), Contains("ZARNEK: stg::readFromIniFile tempVendorInfo->m_LibName" +
                                         name.substr(0, INI_VALUE_LIMIT)));
        EXPECT_EQ(vendorCalls().size(), row.at("calls"));
        EXPECT_EQ(manager->accessLibObjMultimap()->size(), kept);
        EXPECT_EQ(manager->getLibHandleforVendorID(SDO_VIL_NUMBER) != nullptr, kept == 1);
        CLibraryManager::destroyMe();
        EXPECT_EQ(morlan_call_count("SMLibLoad") - loads, row.at("loads"));
        EXPECT_EQ(morlan_call_count("SMLibUnLoad") - unloads, kept) << "what is dropped stays loaded";
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
    CLibraryManager::LibraryMultimap untouched;
    EXPECT_EQ(manager.cloneLibraryMultiMap(untouched) + static_cast<short>(untouched.size()), 0);
    manager.insertIntoMap(OTHERS, nullptr);
    EXPECT_EQ(manager.getVendorLibInstance(OTHERS), manager.getLibHandleforVendorID(OTHERS));
    EXPECT_THAT(messages(), Contains("ZARNEK:CLibraryManager:getVendorLibInstance(): Dynamic Cast Failed."));
    EXPECT_FALSE(stg::CLibraryManager_Helper().checkControllerExistence(OTHERS, update));
    manager.insertIntoMap(OTHERS, update); // a second place of one library
    manager.removeAllElementsFromMap();
    EXPECT_EQ(morlan_call_count("SMLibUnLoad"), 2U);
    delete other;
    delete second;
}

} // namespace
