// Planned failures: every call that can fail does so when planned, and only then.
#include "common/TempFolder.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>
#include <sdo.h>

#include <gtest/gtest.h>

#include <ostream>

namespace
{

constexpr int kStatus = 77;

int statusOf(const void* result)
{
    return result == nullptr ? kStatus : 0;
}

// What the calls work on. Where a failed call leaves something behind, the next one takes it on.
struct World {
    World()
    {
        morlan_set_install_path("/install");
        folder.write("private.ini", "[A]\nk=1\n");
        morlan_set_private_ini(folder.path("private.ini").c_str());
        const unsigned int number = 5;
        SMSDOConfigAddData(object, 1, SDO_TYPE_U32, &number, sizeof number, 1);
    }
    ~World()
    {
        sm_destroy(string);
        morlan_sdo_free(object);
    }

    TempFolder folder;
    void* const thread = SMThreadStart([](void*) {}, nullptr);
    void* const mutex = SMMutexCreate(0);
    void* const object = SMSDOConfigAlloc();
    void* const string = sm_create();
    char buffer[16] = {};
    unsigned int size = sizeof buffer;
};

struct Call {
    const char* name;
    int (*make)(World&); // its status; that of a null pointer is kStatus
};

std::ostream& operator<<(std::ostream& out, const Call& call)
{
    return out << call.name;
}

const Call kCalls[] = {
    {"SMMutexCreate", [](World&) { return statusOf(SMMutexCreate(0)); }},
    {"SMMutexLock", [](World& world) { return SMMutexLock(world.mutex, -1); }},
    {"SMMutexUnLock", [](World& world) { return SMMutexLock(world.mutex, -1), SMMutexUnLock(world.mutex); }},
    {"SMMutexDestroy", [](World&) { return SMMutexDestroy(SMMutexCreate(0)); }},
    {"SMThreadStart",
     [](World&) {
         void* const thread = SMThreadStart([](void*) {}, nullptr);
         SMThreadStop(thread);
         return statusOf(thread);
     }},
    {"SMThreadStop", [](World& world) { return SMThreadStop(world.thread); }},
    {"SMLibLoad", [](World&) { return statusOf(SMLibLoad("libm.so.6")); }},
    {"SMLibUnLoad", [](World&) { return SMLibUnLoad(SMLibLoad("libm.so.6")); }},
    {"sm_create",
     [](World&) {
         void* const string = sm_create();
         sm_destroy(string);
         return statusOf(string);
     }},
    {"GetIniFilePath", [](World& world) { return GetIniFilePath(world.string); }},
    {"SSGetPrivateIniValue",
     [](World& world) { return SSGetPrivateIniValue("A", "k", world.buffer, &(world.size = 16)); }},
    {"SMWriteINIPathFileValue",
     [](World& world) {
         return SMWriteINIPathFileValue("A", "k", 1, "2", 2, world.folder.path("w.ini").c_str(), 1);
     }},
    {"SMSDOConfigAlloc",
     [](World&) {
         void* const object = SMSDOConfigAlloc();
         morlan_sdo_free(object);
         return statusOf(object);
     }},
    {"SMSDOConfigFree",
     [](World&) {
         void* const object = SMSDOConfigAlloc();
         const int status = SMSDOConfigFree(object);
         if (status != 0)
             morlan_sdo_free(object);
         return status;
     }},
    {"SMSDOConfigClone",
     [](World& world) {
         void* const clone = SMSDOConfigClone(world.object);
         morlan_sdo_free(clone);
         return statusOf(clone);
     }},
    {"SMSDOConfigAddData",
     [](World& world) { return SMSDOConfigAddData(world.object, 2, SDO_TYPE_ASTRING, "x", 2, 1); }},
    {"SMSDOConfigGetDataByID",
     [](World& world) {
         return SMSDOConfigGetDataByID(world.object, 1, 0, world.buffer, &(world.size = 16));
     }},
    {"GetProperty2",
     [](World& world) {
         void* value = nullptr;
         unsigned char type = 0;
         return GetProperty2(world.object, 1, &value, &type, &world.size);
     }},
};

class Faults : public testing::TestWithParam<Call>
{
  protected:
    void TearDown() override
    {
        morlan_reset();
        morlan_wait_threads(1000);
    }
};

TEST_P(Faults, StrikeThePlannedCallsAlone)
{
    const Call& call = GetParam();
    World world;
    const unsigned int before = morlan_call_count(call.name);
    EXPECT_EQ(call.make(world), 0);
    ASSERT_EQ(morlan_fail_call(call.name, 2, 2, kStatus), 0);
    for (const int expected : {0, kStatus, kStatus, 0, 0})
        EXPECT_EQ(call.make(world), expected);
    EXPECT_EQ(morlan_call_count(call.name) - before, 6U);

    ASSERT_EQ(morlan_fail_call(call.name, 1, 0, kStatus), 0);
    for (int round = 0; round < 3; ++round)
        EXPECT_EQ(call.make(world), kStatus);
    morlan_clear_faults();
    EXPECT_EQ(call.make(world), 0);

    morlan_fail_call(call.name, 1, 0, kStatus);
    morlan_reset();
    EXPECT_EQ(morlan_call_count(call.name), 0U);
}

INSTANTIATE_TEST_SUITE_P(Morlan, Faults, testing::ValuesIn(kCalls),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(FaultEffects, AFailedCallDoesNothing)
{
    {
        World world;
        for (const Call& call : kCalls)
            morlan_fail_call(call.name, 1, 0, kStatus);
        EXPECT_EQ(GetIniFilePath(world.string), kStatus);
        EXPECT_EQ(sm_strlen(world.string), 0U);
        EXPECT_EQ(SMWriteINIPathFileValue("A", "k", 1, "2", 2, world.folder.path("w.ini").c_str(), 1),
                  kStatus);
        EXPECT_EQ(world.folder.entries(), 1U);
        EXPECT_EQ(SMSDOConfigAddData(world.object, 2, SDO_TYPE_ASTRING, "x", 2, 1), kStatus);
        EXPECT_EQ(morlan_sdo_property_count(world.object), 1U);
        EXPECT_EQ(SMMutexDestroy(world.mutex), kStatus);
        EXPECT_EQ(morlan_live_mutexes(), 1U);
        morlan_reset();
        EXPECT_EQ(SMThreadStop(world.thread), 0);
    }
    EXPECT_EQ(morlan_live_sdo_objects(), 0U);
}

TEST(FaultPlanning, KnowsWhatCanFail)
{
    for (const char* name : {"DebugPrint", "sm_strlen", "sm_destroy", "SMThreadPause", ""})
        EXPECT_NE(morlan_fail_call(name, 1, 1, 1), 0) << name;
    EXPECT_NE(morlan_fail_call(nullptr, 1, 1, 1), 0);
    EXPECT_NE(morlan_fail_call("sm_create", 0, 1, 1), 0);
    EXPECT_EQ(morlan_call_count("SMThreadPause"), 0U);

    // Plans add up; where two meet, the older one decides.
    morlan_fail_call("GetIniFilePath", 1, 2, 11);
    morlan_fail_call("GetIniFilePath", 2, 2, 22);
    morlan_set_install_path("");
    void* const string = sm_create();
    for (const int expected : {11, 11, 22, 0})
        EXPECT_EQ(GetIniFilePath(string), expected);
    sm_destroy(string);
    morlan_reset();
}

} // namespace
