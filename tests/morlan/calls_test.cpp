// Debug text, strings and mutexes.
#include "common/LineLog.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <thread>

namespace
{

using testing::ElementsAre;

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

TEST_F(Calls, DebugTextIsNeverAFormat)
{
    const char* const text = "disk %s %n%n 100% \xff";
    LineLog log;
    morlan_set_debug_sink(LineLog::sink, &log);
    DebugPrint(text);
    DebugPrint("");
    DebugPrint(nullptr);
    EXPECT_THAT(log.lines(), ElementsAre(text, ""));

    morlan_set_debug_sink(nullptr, nullptr);
    testing::internal::CaptureStderr();
    DebugPrint(text);
    DebugPrint("second");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), std::string(text) + "\nsecond\n");
}

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

TEST_F(Calls, AMutexLetsOneThreadIn)
{
    void* const mutex = SMMutexCreate(0);
    ASSERT_EQ(SMMutexLock(mutex, -1), 0);
    std::atomic<bool> entered{false};
    std::thread waiter([&] {
        EXPECT_EQ(SMMutexLock(mutex, -1), 0);
        entered = true;
        EXPECT_EQ(SMMutexUnLock(mutex), 0);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_FALSE(entered);
    EXPECT_EQ(SMMutexUnLock(mutex), 0);
    waiter.join();
    EXPECT_EQ(SMMutexDestroy(mutex), 0);
    EXPECT_EQ(morlan_live_mutexes(), 0U);
    for (void* gone : {mutex, static_cast<void*>(nullptr)})
        EXPECT_TRUE(SMMutexLock(gone, -1) != 0 && SMMutexUnLock(gone) != 0 && SMMutexDestroy(gone) != 0);
}

} // namespace
