// Where the system that the library plays comes from, and several threads in it at once.
#include "mvsim/SimTest.h"

#include <dlfcn.h>
#include <thread>

namespace
{

using LoadTest = SimTest;

TEST_F(LoadTest, TheEnvironmentNamesTheSystem)
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.path("sys/block"));
    const std::string missing = folder.path("none.json");
    const struct {
        std::string scenario;
        unsigned int adapters;
        std::string said;
    } cases[] = {
        {"", 1, ""}, // then it is the machine
        {scenarioFile("two-adapters.json"), 2, ""},
        {missing, 0, "mvsim: " + missing + ": /: expected a scenario file, found no file of that name\n"},
    };
    setenv("MVSIM_LIVE", folder.path("sys").c_str(), 1);
    for (const auto& row : cases) {
        void* const copy = dlopen("libmv_copy.so", RTLD_NOW | RTLD_LOCAL); // that nobody has asked yet
        ASSERT_NE(copy, nullptr) << dlerror();
        if (!row.scenario.empty())
            setenv("MVSIM_SCENARIO", row.scenario.c_str(), 1); // read at the first call, not at load
        const auto count = reinterpret_cast<MV_Adapter_GetCount_t>(dlsym(copy, "MV_Adapter_GetCount"));
        testing::internal::CaptureStderr();
        EXPECT_EQ(count(), row.adapters) << row.scenario;
        EXPECT_EQ(count(), row.adapters) << row.scenario;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), row.said);
        dlclose(copy);
    }
    unsetenv("MVSIM_LIVE");
    unsetenv("MVSIM_SCENARIO");
}

TEST_F(LoadTest, FailedLoadsChangeNothing)
{
    loadAdapter(R"("disks": [{"id": 1, "slot": 0}])", R"("timeline": [{"poll": 9}])");
    poll();
    EXPECT_NE(tryLoad(MVSIM_TESTS_FOLDER "/broken/list.json"), "");
    std::array<char, 12> small{};
    EXPECT_EQ(mvsim_load_live("/nowhere/at/all", nullptr, small.data(), small.size()), 1);
    EXPECT_STREQ(small.data(), "/nowhere/at") << "cut, and terminated";
    EXPECT_EQ(mvsim_polls(), 1U);
    EXPECT_EQ(mvsim_last_poll(), 9U);
    EXPECT_EQ(list(&MV_PD_GetHDInfo_Ext).returned, 1U);
}

TEST_F(LoadTest, ThreadsMayCallAndLoadAtOnce)
{
    const std::string file = scenarioFile("thirty-disks.json");
    loadScenario(file);
    LineLog log;
    std::vector<std::thread> threads;
    for (unsigned int t = 0; t < 4; ++t) {
        threads.emplace_back([t, &file, &log] {
            for (unsigned int i = 0; i < 60; ++i) {
                const unsigned int disks = list(&MV_PD_GetHDInfo_Ext, 40).returned;
                EXPECT_TRUE(disks == 29 || disks == 30) << disks;
                poll();
                EXPECT_TRUE(t != 0 || i % 20 != 0 || tryLoad(file).empty());
                mvsim_set_call_sink(i % 2 == t % 2 ? &LineLog::sink : nullptr, &log);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    mvsim_set_call_sink(nullptr, nullptr);
    EXPECT_THAT(log.lines(), testing::Each(testing::StartsWith("MV_")));
}

} // namespace
