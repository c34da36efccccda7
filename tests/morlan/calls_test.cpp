// Debug text, strings and mutexes.
#include "common/LineLog.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <future>
#include <thread>

namespace
{

class Calls : public testing::Test
{
  protected:
    void TearDown() override { morlan_reset(); }

    // The install path as the plug-in reads it.
    static std::string installPath()
    {
        void* const string = sm_create();
        const int status = GetIniFilePath(string);
        const std::string path = static_cast<const char*>(string);
        EXPECT_EQ(sm_strlen(string), path.size());
        sm_destroy(string);
        EXPECT_TRUE(status == 0 || path.empty());
        return status == 0 ? path : "failed";
    }
};

TEST_F(Calls, StringsHoldTheInstallPathOfTheHostOrTheEnvironment)
{
    setenv("MORLAN_INSTALL_PATH", "/from/environment", 1);
    EXPECT_EQ(installPath(), "/from/environment");
    for (const std::string& path : {std::string("/from/host"), std::string(), std::string(4095, 'x')}) {
        morlan_set_install_path(path.c_str());
        EXPECT_EQ(installPath(), path);
    }
    morlan_set_install_path(std::string(4096, 'y').c_str());
    EXPECT_EQ(installPath(), "failed") << "no room";
    unsetenv("MORLAN_INSTALL_PATH");
}

TEST_F(Calls, AStringMayBeDestroyedTwice)
{
    void* const first = sm_create();
    sm_destroy(first);
    void* const second = sm_create();
    sm_destroy(first);
    EXPECT_EQ(morlan_live_strings(), 1U) << "the second destroy hit another string";
    sm_destroy(second);
}

// A sink that is being replaced: its context has to stay until it has returned.
TEST_F(Calls, AReplacedSinkIsNoLongerRunning)
{
    std::atomic<int> stage{0};
    morlan_set_debug_sink(
        [](void* context, const char*) {
            auto& passed = *static_cast<std::atomic<int>*>(context);
            passed = 1;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            passed = 2;
        },
        &stage);
    std::thread printer([] { DebugPrint("slow"); });
    while (stage == 0)
        std::this_thread::yield();
    LineLog log;
    morlan_set_debug_sink(LineLog::sink, &log);
    EXPECT_EQ(stage, 2);
    printer.join();

    // One that replaces itself waits for nobody.
    morlan_set_debug_sink([](void* next, const char*) { morlan_set_debug_sink(LineLog::sink, next); }, &log);
    DebugPrint("to the one that goes");
    DebugPrint(nullptr);
    DebugPrint("100% to the next, %s %n"); // a text, never a format
    EXPECT_THAT(log.lines(), testing::ElementsAre("100% to the next, %s %n"));
}

TEST_F(Calls, AMutexLetsOneThreadIn)
{
    using std::chrono::milliseconds;
    void* const mutex = SMMutexCreate(0);
    ASSERT_EQ(SMMutexLock(mutex, -1), 0);
    ASSERT_EQ(SMMutexLock(mutex, -1), 0) << "its holder may lock it again";
    auto patient = std::async(std::launch::async,
                              [mutex] { return SMMutexLock(mutex, -1) == 0 && SMMutexUnLock(mutex) == 0; });
    auto hasty = std::async(std::launch::async, [mutex] {
        const auto start = std::chrono::steady_clock::now();
        const bool refused = SMMutexLock(mutex, 30) != 0 || SMMutexUnLock(mutex) != 0;
        return refused && std::chrono::steady_clock::now() - start >= milliseconds(30);
    });
    EXPECT_EQ(hasty.wait_for(milliseconds(5000)), std::future_status::ready);
    EXPECT_EQ(SMMutexUnLock(mutex), 0);
    EXPECT_EQ(patient.wait_for(milliseconds(20)), std::future_status::timeout) << "unlocked once of twice";
    EXPECT_NE(SMMutexDestroy(mutex), 0) << "somebody holds it";
    EXPECT_EQ(SMMutexUnLock(mutex), 0);
    EXPECT_TRUE(patient.get());
    EXPECT_TRUE(hasty.get());
    EXPECT_EQ(SMMutexDestroy(mutex), 0);
    EXPECT_EQ(morlan_live_mutexes(), 0U);
    for (void* gone : {mutex, static_cast<void*>(nullptr)})
        EXPECT_TRUE(SMMutexLock(gone, -1) != 0 && SMMutexUnLock(gone) != 0 && SMMutexDestroy(gone) != 0);
}

} // namespace
