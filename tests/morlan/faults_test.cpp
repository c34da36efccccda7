// Planned failures: every call that can fail does so when planned, and only then.
#include "common/TempFolder.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>
#include <sdo.h>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace
{

constexpr int kStatus = 77;

// The status of a call that gives a handle, which goes back at once.
int given(void* handle, void (*giveBack)(void*))
{
    if (handle == nullptr)
        return kStatus;
    giveBack(handle);
    return 0;
}

TEST(Faults, AFailedCallDoesNothing)
{
    const TempFolder folder;
    const std::string file = folder.path("new.ini");
    folder.write("private.ini", "[A]\nk=1\n");
    morlan_set_install_path("/install");
    morlan_set_private_ini(folder.path("private.ini").c_str());
    const auto runNothing = [](void*) {};
    void* const library = SMLibLoad("libm.so.6");
    void* const thread = SMThreadStart(runNothing, nullptr);
    void* const mutex = SMMutexCreate(0);
    void* const string = sm_create();
    void* const spare = SMSDOConfigAlloc();
    void* const object = SMSDOConfigAlloc();
    SMSDOConfigAddData(object, 1, SDO_TYPE_ASTRING, "x", 2, 1);
    char buffer[16] = {};
    unsigned int size = sizeof buffer;
    unsigned char type = 0;
    void* value = nullptr;
    const auto endMutex = [](void* handle) { SMMutexDestroy(handle); };
    const auto endThread = [](void* handle) { SMThreadStop(handle); };
    const auto endLibrary = [](void* handle) { SMLibUnLoad(handle); };
    const std::pair<const char*, std::function<int()>> calls[] = {
        {"SMMutexLock", [&] { return SMMutexLock(mutex, -1); }},
        {"SMMutexUnLock", [&] { return SMMutexUnLock(mutex); }},
        {"SMMutexCreate", [&] { return given(SMMutexCreate(0), endMutex); }},
        {"SMMutexDestroy", [&] { return SMMutexDestroy(mutex); }},
        {"SMThreadStart", [&] { return given(SMThreadStart(runNothing, nullptr), endThread); }},
        {"SMThreadStop", [&] { return SMThreadStop(thread); }},
        {"SMLibLoad", [&] { return given(SMLibLoad("libm.so.6"), endLibrary); }},
        {"SMLibUnLoad", [&] { return SMLibUnLoad(library); }},
        {"sm_create", [&] { return given(sm_create(), sm_destroy); }},
        {"GetIniFilePath", [&] { return GetIniFilePath(string); }},
        {"SSGetPrivateIniValue", [&] { return SSGetPrivateIniValue("A", "k", buffer, &size); }},
        {"SMWriteINIPathFileValue",
         [&] { return SMWriteINIPathFileValue("A", "k", 1, "2", 2, file.c_str(), 1); }},
        {"SMSDOConfigAddData", [&] { return SMSDOConfigAddData(object, 2, SDO_TYPE_ASTRING, "x", 2, 1); }},
        {"SMSDOConfigGetDataByID", [&] { return SMSDOConfigGetDataByID(object, 1, 0, buffer, &size); }},
        {"GetProperty2", [&] { return GetProperty2(object, 1, &value, &type, &size); }},
        {"SMSDOConfigAlloc", [&] { return given(SMSDOConfigAlloc(), morlan_sdo_free); }},
        {"SMSDOConfigClone", [&] { return given(SMSDOConfigClone(object), morlan_sdo_free); }},
        {"SMSDOConfigFree", [&] { return SMSDOConfigFree(spare); }},
    };
    for (const auto& [name, call] : calls) {
        ASSERT_EQ(morlan_fail_call(name, 1, 1, kStatus), 0) << name;
        EXPECT_EQ(call(), kStatus) << name;
    }
    EXPECT_EQ(sm_strlen(string), 0U);
    EXPECT_EQ(folder.entries(), 1U);
    EXPECT_EQ(morlan_sdo_property_count(object), 1U);
    for (const auto& [name, call] : calls)
        EXPECT_EQ(call(), 0) << name << ": what it works on is there still";
    sm_destroy(string);
    morlan_sdo_free(object);
    EXPECT_EQ(morlan_live_sdo_objects(), 0U);
    morlan_reset();
}

TEST(Faults, PlansAddUp)
{
    for (const char* name : {"DebugPrint", "sm_strlen", "sm_destroy", "SMThreadPause", ""})
        EXPECT_NE(morlan_fail_call(name, 1, 1, 1), 0) << name;
    EXPECT_NE(morlan_fail_call(nullptr, 1, 1, 1), 0);
    EXPECT_NE(morlan_fail_call("sm_create", 0, 1, 1), 0);

    void* const string = sm_create();
    morlan_set_install_path("/install");
    const auto expectStatuses = [string](const std::vector<int>& statuses) {
        for (const int expected : statuses)
            EXPECT_EQ(GetIniFilePath(string), expected);
    };
    morlan_fail_call("GetIniFilePath", 2, 2, 11);
    morlan_fail_call("GetIniFilePath", 3, 2, 22);
    expectStatuses({0, 11, 11, 22, 0}); // where two meet, the older one decides
    morlan_fail_call("GetIniFilePath", 1, 0, 33);
    expectStatuses({33, 33, 33});
    morlan_clear_faults();
    expectStatuses({0});
    EXPECT_EQ(morlan_call_count("GetIniFilePath"), 9U);
    sm_destroy(string);
    morlan_reset();
}

} // namespace
