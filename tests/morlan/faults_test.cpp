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

// The calls whose failure the plug-in's tests could not miss are left to them.
TEST(Faults, AFailedCallDoesNothing)
{
    const TempFolder folder;
    folder.write("private.ini", "[A]\nk=1\n");
    morlan_set_install_path("/install");
    morlan_set_private_ini(folder.path("private.ini").c_str());
    void* const library = SMLibLoad("libm.so.6");
    void* const mutex = SMMutexCreate(0);
    void* const string = sm_create();
    void* const object = SMSDOConfigAlloc();
    SMSDOConfigAddData(object, 1, SDO_TYPE_ASTRING, "x", 2, 1);
    char buffer[16] = {};
    unsigned int size = sizeof buffer;
    unsigned char type = 0;
    void* value = nullptr;
    const std::pair<const char*, std::function<int()>> calls[] = {
        {"SMMutexLock", [&] { return SMMutexLock(mutex, -1); }},
        {"SMMutexUnLock", [&] { return SMMutexUnLock(mutex); }},
        {"SMMutexDestroy", [&] { return SMMutexDestroy(mutex); }},
        {"SMLibUnLoad", [&] { return SMLibUnLoad(library); }},
        {"GetIniFilePath", [&] { return GetIniFilePath(string); }},
        {"SSGetPrivateIniValue", [&] { return SSGetPrivateIniValue("A", "k", buffer, &size); }},
        {"GetProperty2", [&] { return GetProperty2(object, 1, &value, &type, &size); }},
        {"SMSDOConfigFree", [&] { return SMSDOConfigFree(object); }},
    };
    for (const auto& [name, call] : calls) {
        ASSERT_EQ(morlan_fail_call(name, 1, 1, kStatus), 0) << name;
        EXPECT_EQ(call(), kStatus) << name;
    }
    for (const auto& [name, make] :
         {std::pair{"sm_create", &sm_create}, {"SMSDOConfigAlloc", &SMSDOConfigAlloc}}) {
        ASSERT_EQ(morlan_fail_call(name, 1, 1, kStatus), 0) << name;
        EXPECT_EQ(make(), nullptr) << name;
    }
    EXPECT_EQ(sm_strlen(string), 0U);
    for (const auto& [name, call] : calls)
        EXPECT_EQ(call(), 0) << name << ": what it works on is there still";
    sm_destroy(string);
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
