// Debug text, strings, mutexes, libraries and the sinks.
#include "common/LineLog.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <optional>
#include <thread>
#include <vector>

namespace
{

using testing::ElementsAre;

class Calls : public testing::Test
{
  protected:
    void TearDown() override { morlan_reset(); }
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
    EXPECT_EQ(log.lines().size(), 2U);
}

TEST_F(Calls, AReplacedSinkRunsNoMore)
{
    struct Slow {
        std::atomic<bool> entered{false};
        std::atomic<bool> left{false};
    } slow;
    morlan_set_debug_sink(
        [](void* context, const char*) {
            auto* const self = static_cast<Slow*>(context);
            self->entered = true;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            self->left = true;
        },
        &slow);
    std::thread caller([] { DebugPrint("line"); });
    while (!slow.entered)
        std::this_thread::yield();
    morlan_set_debug_sink([](void* context, const char*) { morlan_set_debug_sink(LineLog::sink, context); },
                          nullptr);
    EXPECT_TRUE(slow.left);
    caller.join();

    LineLog log;
    morlan_set_debug_sink([](void* context, const char*) { morlan_set_debug_sink(LineLog::sink, context); },
                          &log);
    DebugPrint("replaces its own sink");
    DebugPrint("heard");
    EXPECT_THAT(log.lines(), ElementsAre("heard"));
}

TEST_F(Calls, AStringIsItsOwnText)
{
    void* const string = sm_create();
    ASSERT_NE(string, nullptr);
    EXPECT_STREQ(static_cast<const char*>(string), "");
    EXPECT_EQ(sm_strlen(string), 0U);

    const std::string longest(4095, 'x');
    const std::string tooLong(4096, 'y');
    morlan_set_install_path(longest.c_str());
    EXPECT_EQ(GetIniFilePath(string), 0);
    EXPECT_EQ(static_cast<const char*>(string), longest);
    EXPECT_EQ(sm_strlen(string), 4095U);
    morlan_set_install_path(tooLong.c_str());
    EXPECT_NE(GetIniFilePath(string), 0);
    EXPECT_EQ(static_cast<const char*>(string), longest);
    sm_destroy(string);
    EXPECT_EQ(morlan_live_strings(), 0U);
}

TEST_F(Calls, AStringMayBeDestroyedTwice)
{
    void* const first = sm_create();
    sm_destroy(first);
    void* const second = sm_create();
    sm_destroy(first);
    sm_destroy(nullptr);
    EXPECT_EQ(morlan_live_strings(), 1U) << "the second destroy hit another string";
    EXPECT_EQ(GetIniFilePath(first), 1);
    EXPECT_EQ(sm_strlen(first), 0U);
    sm_destroy(second);
}

TEST_F(Calls, TheInstallPathComesFromTheHostOrTheEnvironment)
{
    const auto installPath = []() -> std::optional<std::string> {
        void* const string = sm_create();
        const int status = GetIniFilePath(string);
        const std::string path = static_cast<const char*>(string);
        sm_destroy(string);
        EXPECT_TRUE(status == 0 || path.empty());
        return status == 0 ? std::optional<std::string>(path) : std::nullopt;
    };
    EXPECT_EQ(installPath(), std::nullopt);
    setenv("MORLAN_INSTALL_PATH", "/from/environment", 1);
    EXPECT_EQ(installPath(), "/from/environment");
    morlan_set_install_path("/from/host");
    EXPECT_EQ(installPath(), "/from/host");
    morlan_set_install_path("");
    EXPECT_EQ(installPath(), "");
    morlan_set_install_path(nullptr);
    EXPECT_EQ(installPath(), std::nullopt);
    morlan_reset();
    EXPECT_EQ(installPath(), "/from/environment");
    unsetenv("MORLAN_INSTALL_PATH");
    EXPECT_NE(GetIniFilePath(nullptr), 0);
}

TEST_F(Calls, AMutexLetsOneThreadIn)
{
    void* const mutex = SMMutexCreate(0);
    ASSERT_NE(mutex, nullptr);
    int counter = 0; // guarded by the mutex alone
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 200; ++round) {
                EXPECT_EQ(SMMutexLock(mutex, -1), 0);
                ++counter;
                EXPECT_EQ(SMMutexUnLock(mutex), 0);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(counter, 800);

    ASSERT_EQ(SMMutexLock(mutex, -1), 0);
    std::thread([&] {
        EXPECT_NE(SMMutexLock(mutex, 0), 0);
        EXPECT_NE(SMMutexLock(mutex, 20), 0);
        EXPECT_NE(SMMutexUnLock(mutex), 0) << "not the owner";
    }).join();
    EXPECT_NE(SMMutexDestroy(mutex), 0) << "still held";
    EXPECT_EQ(SMMutexUnLock(mutex), 0);
    EXPECT_NE(SMMutexUnLock(mutex), 0) << "not held";
    EXPECT_EQ(morlan_live_mutexes(), 1U);
    EXPECT_EQ(SMMutexDestroy(mutex), 0);
    EXPECT_EQ(morlan_live_mutexes(), 0U);

    for (void* gone : {mutex, static_cast<void*>(nullptr)}) {
        EXPECT_NE(SMMutexLock(gone, -1), 0);
        EXPECT_NE(SMMutexUnLock(gone), 0);
        EXPECT_NE(SMMutexDestroy(gone), 0);
    }
}

TEST_F(Calls, TheCallSinkSeesTheCallsInOrder)
{
    LineLog log;
    morlan_set_call_sink(LineLog::sink, &log);
    morlan_set_install_path("/opt/a \"b\"");
    morlan_set_private_ini("/nowhere/private.ini");

    void* const loaded = SMLibLoad("libm.so.6");
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(SMLibLoad("libno such\n.so"), nullptr);
    EXPECT_EQ(SMLibLoad(nullptr), nullptr);
    EXPECT_EQ(SMLibUnLoad(loaded), 0);
    EXPECT_EQ(SMLibUnLoad(dlopen("libm.so.6", RTLD_LAZY)), 0);
    EXPECT_NE(SMLibUnLoad(nullptr), 0);
    void* const string = sm_create();
    GetIniFilePath(string);
    morlan_fail_call("GetIniFilePath", 1, 1, 5);
    GetIniFilePath(string);
    char buffer[32];
    unsigned int size = sizeof buffer;
    SSGetPrivateIniValue("VendorID", nullptr, buffer, &size);
    SMWriteINIPathFileValue("S", "K", 1, "17", 3, "/nowhere/f.ini", 1);
    void* const thread = SMThreadStart([](void*) { SMLibLoad("libin thread.so"); }, nullptr);
    SMThreadStop(thread);
    SMThreadStop(nullptr);
    SMMutexDestroy(SMMutexCreate(0));
    SMSDOConfigFree(SMSDOConfigAlloc());
    sm_destroy(string);

    EXPECT_THAT(log.lines(),
                ElementsAre("SMLibLoad(\"libm.so.6\") = ok", "SMLibLoad(\"libno such\\x0a.so\") = failed",
                            "SMLibLoad(null) = failed", "SMLibUnLoad(library) = 0",
                            "SMLibUnLoad(library) = 0", "SMLibUnLoad(null) = 1",
                            "GetIniFilePath() = 0, \"/opt/a \\\"b\\\"\"", "GetIniFilePath() = 5",
                            "SSGetPrivateIniValue(\"VendorID\", null, 32) = 1",
                            "SMWriteINIPathFileValue(\"S\", \"K\", 1, \"17\", 3, \"/nowhere/f.ini\", 1) = 1",
                            "SMThreadStart() = thread 1", "SMLibLoad(\"libin thread.so\") = failed",
                            "SMThreadStop(thread 1) = 0", "SMThreadStop(null) = 1"));
}

} // namespace
