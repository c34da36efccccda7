// The library as a file: what it exports, where its scenario comes from, and several threads in it at once.
#include "mvsim/SimTest.h"

#include <dlfcn.h>
#include <memory>
#include <thread>

namespace
{

using testing::HasSubstr;
using testing::StartsWith;

struct Close {
    void operator()(void* library) const { dlclose(library); }
};
using OpenLibrary = std::unique_ptr<void, Close>;

// Another copy of the simulator, with a state of its own, from the folder where the simulator itself lies.
OpenLibrary openCopy(const std::string& missing)
{
    Dl_info simulator{};
    EXPECT_NE(dladdr(reinterpret_cast<const void*>(&mvsim_reset), &simulator), 0);
    const auto path =
        std::filesystem::path(simulator.dli_fname).replace_filename("libmv_no_" + missing + ".so");
    OpenLibrary library(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
    EXPECT_NE(library, nullptr) << dlerror();
    return library;
}

unsigned int adapterCount(const OpenLibrary& library)
{
    const auto count = reinterpret_cast<MV_Adapter_GetCount_t>(dlsym(library.get(), "MV_Adapter_GetCount"));
    return count != nullptr ? count() : 0xffff;
}

TEST(LibraryTest, CopiesLackOneEntryPointEach)
{
    const std::vector<std::string> all = {
#define MVSIM_TEXT(symbol, arguments) #symbol,
        MV_API_LIST(MVSIM_TEXT)
#undef MVSIM_TEXT
    };
    ASSERT_EQ(all.size(), 17U);
    for (const std::string& missing : all) {
        const OpenLibrary library = openCopy(missing);
        ASSERT_NE(library, nullptr);
        for (const std::string& symbol : all) {
            EXPECT_EQ(dlsym(library.get(), symbol.c_str()) == nullptr, symbol == missing)
                << symbol << " in the copy without " << missing;
        }
        EXPECT_NE(dlsym(library.get(), "mvsim_load_scenario"), nullptr);
    }
}

// Sets a variable for the test's time.
class Environment
{
  public:
    Environment(const char* name, const std::string& value) : m_name(name) { setenv(name, value.c_str(), 1); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() { unsetenv(m_name); }

  private:
    const char* m_name;
};

TEST(LibraryTest, EnvironmentNamesTheSystem)
{
    const TempFolder folder;
    folder.write("two.json", R"({"format": 1, "name": "", "adapters":
        [{"slot": 0, "maxBufferKB": 1}, {"slot": 1, "maxBufferKB": 1}]})");
    std::filesystem::create_directories(folder.path("sys/block"));
    const Environment live("MVSIM_LIVE", folder.path("sys"));
    {
        const OpenLibrary library = openCopy("MV_PassThrough_ATA");
        EXPECT_EQ(adapterCount(library), 1U);
    }
    {
        const OpenLibrary library = openCopy("MV_PassThrough_ATA");
        const Environment scenario("MVSIM_SCENARIO", folder.path("two.json"));
        EXPECT_EQ(adapterCount(library), 2U) << "read at the first call, not at load";
    }
    {
        const Environment scenario("MVSIM_SCENARIO", folder.path("none.json"));
        const OpenLibrary library = openCopy("MV_PassThrough_ATA");
        testing::internal::CaptureStderr();
        EXPECT_EQ(adapterCount(library), 0U);
        EXPECT_EQ(adapterCount(library), 0U);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "mvsim: " + folder.path("none.json") +
                      ": /: expected a scenario file, found no file of that name\n");
    }
    {
        const Environment scenario("MVSIM_SCENARIO", folder.path("two.json"));
        const OpenLibrary library = openCopy("MV_PassThrough_ATA");
        using Reset = void (*)();
        reinterpret_cast<Reset>(dlsym(library.get(), "mvsim_reset"))();
        EXPECT_EQ(adapterCount(library), 0U) << "a reset decides ahead of the environment";
    }
}

class LoadTest : public SimTest
{
};

TEST_F(LoadTest, FailedLoadsChangeNothing)
{
    loadAdapter(R"("disks": [{"id": 1, "slot": 0}])", R"("timeline": [{"poll": 9}])");
    poll();
    m_folder.write("bad.json", "{}");
    EXPECT_THAT(tryLoad(m_folder.path("bad.json")), StartsWith(m_folder.path("bad.json: ")));
    EXPECT_THAT(tryLoad(m_folder.path()), HasSubstr("expected a scenario file"));
    std::array<char, 12> small{};
    EXPECT_EQ(mvsim_load_live(m_folder.path().c_str(), nullptr, small.data(), small.size()), 1);
    EXPECT_EQ(std::string(small.data()), m_folder.path().substr(0, 11)) << "cut, and terminated";
    EXPECT_EQ(mvsim_load_scenario(nullptr, nullptr, 0), 1);
    EXPECT_EQ(mvsim_polls(), 1U);
    EXPECT_EQ(mvsim_last_poll(), 9U);
    EXPECT_EQ(list(&MV_PD_GetHDInfo_Ext).returned, 1U);

    loadAdapter("");
    EXPECT_EQ(mvsim_polls(), 0U);
    EXPECT_EQ(mvsim_last_poll(), 0U);
    mvsim_reset();
    EXPECT_EQ(MV_Adapter_GetCount(), 0U);
}

TEST_F(LoadTest, ThreadsMayCallAndLoadAtOnce)
{
    loadAdapter(
        R"("disks": [{"id": 0, "slot": 0, "repeat": 30}])",
        R"("timeline": [{"poll": 3, "disks": [{"id": 4, "gone": true}], "events": [{"code": "diskRemoved"}]}])");
    LineLog log;
    std::vector<std::thread> threads;
    for (unsigned int t = 0; t < 4; ++t) {
        threads.emplace_back([this, t, &log] {
            for (unsigned int i = 0; i < 60; ++i) {
                const unsigned int disks = list(&MV_PD_GetHDInfo_Ext, 40).returned;
                EXPECT_TRUE(disks == 29 || disks == 30) << disks;
                poll();
                if (t == 0 && i % 20 == 0) {
                    EXPECT_EQ(tryLoad(m_folder.path("scenario.json")), "");
                }
                mvsim_set_call_sink(i % 2 == t % 2 ? &LineLog::sink : nullptr, &log);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    mvsim_set_call_sink(nullptr, nullptr);
    for (const std::string& line : log.lines()) {
        EXPECT_THAT(line, StartsWith("MV_"));
    }
}

} // namespace
