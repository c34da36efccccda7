// Planned failures: every call that can fail does so when planned, and only then.
#include "common/TempFolder.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>
#include <sdo.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{

constexpr int kStatus = 77;

// What the calls work on.
struct World {
    World()
    {
        folder.write("private.ini", "[A]\nk=1\n");
        morlan_set_install_path("/install");
        morlan_set_private_ini(folder.path("private.ini").c_str());
        SMSDOConfigAddData(object, 1, SDO_TYPE_ASTRING, "x", 2, 1);
    }
    ~World()
    {
        sm_destroy(string);
        morlan_sdo_free(object);
        morlan_reset();
        EXPECT_EQ(morlan_wait_threads(1000), 0);
        EXPECT_EQ(morlan_live_sdo_objects(), 0U);
    }

    TempFolder folder;
    void* const thread = SMThreadStart([](void*) {}, nullptr);
    void* const mutex = SMMutexCreate(0);
    void* const object = SMSDOConfigAlloc();
    void* const string = sm_create();
    char buffer[16] = {};
    unsigned int size = sizeof buffer;
    unsigned char type = 0;
    void* value = nullptr;
};

// The status of a call that gives a handle, which goes back at once.
int given(void* handle, void (*giveBack)(void*))
{
    if (handle == nullptr)
        return kStatus;
    giveBack(handle);
    return 0;
}

void runNothing(void*) {}

const struct {
    const char* name;
    int (*make)(World&);
} kCalls[] = {
    {"SMMutexCreate", [](World&) { return given(SMMutexCreate(0), [](void* m) { SMMutexDestroy(m); }); }},
    {"SMMutexLock", [](World& w) { return SMMutexLock(w.mutex, -1); }},
    {"SMMutexUnLock", [](World& w) { return SMMutexLock(w.mutex, -1), SMMutexUnLock(w.mutex); }},
    {"SMMutexDestroy", [](World&) { return SMMutexDestroy(SMMutexCreate(0)); }},
    {"SMThreadStart",
     [](World&) { return given(SMThreadStart(runNothing, nullptr), [](void* t) { SMThreadStop(t); }); }},
    {"SMThreadStop", [](World& w) { return SMThreadStop(w.thread); }},
    {"SMLibLoad", [](World&) { return given(SMLibLoad("libm.so.6"), [](void* l) { SMLibUnLoad(l); }); }},
    {"SMLibUnLoad", [](World&) { return SMLibUnLoad(SMLibLoad("libm.so.6")); }},
    {"sm_create", [](World&) { return given(sm_create(), sm_destroy); }},
    {"GetIniFilePath", [](World& w) { return GetIniFilePath(w.string); }},
    {"SSGetPrivateIniValue",
     [](World& w) { return SSGetPrivateIniValue("A", "k", w.buffer, &(w.size = sizeof w.buffer)); }},
    {"SMWriteINIPathFileValue",
     [](World& w) { return SMWriteINIPathFileValue("A", "k", 1, "2", 2, w.folder.path("w").c_str(), 1); }},
    {"SMSDOConfigAlloc", [](World&) { return given(SMSDOConfigAlloc(), morlan_sdo_free); }},
    {"SMSDOConfigFree",
     [](World&) {
         void* const object = SMSDOConfigAlloc();
         const int status = SMSDOConfigFree(object);
         return status == 0 ? 0 : (morlan_sdo_free(object), status);
     }},
    {"SMSDOConfigClone", [](World& w) { return given(SMSDOConfigClone(w.object), morlan_sdo_free); }},
    {"SMSDOConfigAddData",
     [](World& w) { return SMSDOConfigAddData(w.object, 2, SDO_TYPE_ASTRING, "x", 2, 1); }},
    {"SMSDOConfigGetDataByID",
     [](World& w) { return SMSDOConfigGetDataByID(w.object, 1, 0, w.buffer, &(w.size = sizeof w.buffer)); }},
    {"GetProperty2", [](World& w) { return GetProperty2(w.object, 1, &w.value, &w.type, &w.size); }},
};

TEST(Faults, EachCallFailsAsPlannedAndThenDoesNothing)
{
    for (const auto& call : kCalls) {
        SCOPED_TRACE(call.name);
        World world;
        const unsigned int before = morlan_call_count(call.name);
        ASSERT_EQ(morlan_fail_call(call.name, 1, 2, kStatus), 0);
        for (int failed = 0; failed < 2; ++failed)
            EXPECT_EQ(call.make(world), kStatus);
        EXPECT_EQ(sm_strlen(world.string), 0U);
        EXPECT_EQ(world.folder.entries(), 1U);
        EXPECT_EQ(morlan_sdo_property_count(world.object), 1U);
        EXPECT_EQ(call.make(world), 0);
        EXPECT_EQ(morlan_call_count(call.name) - before, 3U);
    }
}

TEST(Faults, PlansAddUp)
{
    for (const char* name : {"DebugPrint", "sm_strlen", "sm_destroy", "SMThreadPause", ""})
        EXPECT_NE(morlan_fail_call(name, 1, 1, 1), 0) << name;
    EXPECT_NE(morlan_fail_call(nullptr, 1, 1, 1), 0);
    EXPECT_NE(morlan_fail_call("sm_create", 0, 1, 1), 0);

    World world;
    const auto expectStatuses = [&world](const std::vector<int>& statuses) {
        for (const int expected : statuses)
            EXPECT_EQ(GetIniFilePath(world.string), expected);
    };
    morlan_fail_call("GetIniFilePath", 2, 2, 11);
    morlan_fail_call("GetIniFilePath", 3, 2, 22);
    expectStatuses({0, 11, 11, 22, 0}); // where two meet, the older one decides
    morlan_fail_call("GetIniFilePath", 1, 0, 33);
    expectStatuses({33, 33, 33});
    morlan_clear_faults();
    expectStatuses({0});
}

} // namespace
