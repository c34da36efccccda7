// What a scenario may take, and that the stand-ins' C functions survive a lack of memory.
#include "common/SdoObject.h"
#include "mvsim/SimTest.h"
#include "ral/ral_inspect.h"

#include <ral.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

thread_local unsigned int t_nth = 0; // this allocation from now on fails; 0: none
std::atomic<std::size_t> g_taken{0}; // bytes

void* take(std::size_t size)
{
    g_taken += size;
    return t_nth != 0 && --t_nth == 0 ? nullptr : std::malloc(size);
}

} // namespace

void* operator new(std::size_t size, const std::nothrow_t& /*form*/) noexcept
{
    return take(size);
}
void* operator new(std::size_t size)
{
    void* const memory = take(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}
void* operator new[](std::size_t size)
{
    return operator new(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

namespace
{

using testing::HasSubstr;

using LimitsTest = SimTest;

constexpr char FRAME[] = R"({"format": 1, "name": "test", "adapters": [)";
constexpr char ADAPTER[] = R"({"slot": 0, "maxBufferKB": 64})";
constexpr char FULL_ADAPTER[] = R"({"slot": 0, "maxBufferKB": 64,
    "disks": [{"id": 0, "slot": 0, "repeat": 65535}], "virtualDisks": [{"id": 0, "repeat": 65535}]})";

std::string repeated(unsigned int count, const std::string& text)
{
    std::string whole;
    while (count-- != 0)
        whole += text + (count != 0 && text.size() > 1 ? ", " : "");
    return whole;
}

TEST_F(LimitsTest, AScenarioThatTakesTooMuchIsRefused)
{
    const struct {
        std::string text;
        std::string message;
    } rows[] = {
        {repeated(100000, "["), "/0/0/0: expected at most 32 brackets within each other, found more"},
        {FRAME + std::string("], \"a\u202eb\": 2}"), ": /a\\xe2\\x80\\xaeb: expected one of the keys"},
        {R"({"name": )" + repeated(100000, "[") + repeated(100000, "]") + "}", "at most 32 brackets"},
        {FRAME + repeated(2, FULL_ADAPTER) + "]}",
         "/adapters/1: expected at most 250000 devices on all adapters, found 262140"},
        {FRAME + std::string(ADAPTER) + R"(], "timeline": [{"poll": 1, "events": [)" +
             repeated(16, R"({"code": "diskOnline", "repeat": 65535})") + "]}]}",
         "/timeline/0/events/15: expected at most 1000000 events in the timeline, found more"},
    };
    const std::string file = m_folder.path("scenario.json");
    for (const auto& row : rows) {
        m_folder.write("scenario.json", row.text);
        EXPECT_THAT(tryLoad(file), HasSubstr(row.message));
    }
    std::filesystem::resize_file(file, std::uintmax_t{65} << 20);
    EXPECT_EQ(tryLoad(file), file + ": larger than 64 MiB, which no scenario needs");
}

TEST_F(LimitsTest, ATimelineTakesTheRoomOfItsChangesAndStartsOver)
{
    std::string text = FRAME + std::string(FULL_ADAPTER) + R"(], "timeline": [)";
    for (unsigned int poll = 1; poll <= 40; ++poll)
        text += R"({"poll": )" + std::to_string(poll) + R"(, "disks": [{"id": 7, "raidStatus": )" +
                std::to_string(poll) + "}]}, ";
    text.replace(text.size() - 2, 2, "]}");
    for (int round = 0; round < 2; ++round) {
        const std::size_t before = g_taken;
        load(text);
        EXPECT_LT(g_taken - before, std::size_t{300} << 20);
        EXPECT_EQ(diskStatus(7), 0U);
        poll();
        poll();
        EXPECT_EQ(diskStatus(7), 2U);
        EXPECT_EQ(mvsim_last_poll(), 40U);
    }
}

void ignoreText(void* /*context*/, const char* /*text*/) {}

// The three libraries as after load, with sinks, a little content and objects to call them with.
class Things
{
  public:
    explicit Things(const TempFolder& folder) : m_folder(folder)
    {
        reset();
        morlan_set_private_ini(m_folder.path("f.ini").c_str());
        morlan_set_install_path("/installed/somewhere/else");
        for (const auto set :
             {morlan_set_call_sink, morlan_set_debug_sink, ral_set_call_sink, mvsim_set_call_sink})
            set(ignoreText, nullptr);
        ral_set_change_sink([](void*, ral_change, const void*, const void*) {}, nullptr);
        ral_set_notification_sink([](void*, const void*) {}, nullptr);
        mvsim_set_event_sink([](void*, const mvsim_event*) {}, nullptr);
        EXPECT_EQ(RalInsertObject(copy(upper), nullptr), 0);
        EXPECT_EQ(RalInsertObject(copy(lower), copy(upper)), 0);
        EXPECT_EQ(loadScenario(), 0);
    }
    Things(const Things&) = delete;
    Things& operator=(const Things&) = delete;
    ~Things()
    {
        for (void* object : {upper, lower, other})
            morlan_sdo_free(object);
        reset();
    }

    static void* copy(const void* object) { return morlan_sdo_clone(object); }
    int loadScenario() const { return mvsim_load_scenario(scenario.c_str(), nullptr, 0); }
    static void reset()
    {
        morlan_reset();
        ral_reset();
        mvsim_reset();
    }

  private:
    const TempFolder& m_folder;

  public:
    void* const upper = makeObject({{SSPROP_OBJTYPE_U32, 1}, {7, 1}});
    void* const lower = makeObject({{SSPROP_OBJTYPE_U32, 2}, {7, 2}});
    void* const other = makeObject({{SSPROP_OBJTYPE_U32, 3}, {7, 3}});
    const std::string ini = m_folder.path("f.ini");
    const std::string scenario = m_folder.path("scenario.json");
    const std::string root = m_folder.path();
};

constexpr struct {
    const char* name;
    bool (*works)(const Things& things);
} BORDERS[] = {
    {"strings",
     [](const Things&) {
         void* const string = sm_create();
         const bool read = GetIniFilePath(string) == 0 && sm_strlen(string) == 25;
         sm_destroy(string);
         sm_destroy(string); // where the first one lacked memory
         return read;
     }},
    {"threads",
     [](const Things&) {
         void* const mutex = SMMutexCreate(0);
         void* const thread = SMThreadStart([](void* held) { SMMutexLock(held, 0); }, nullptr);
         const bool locked = SMMutexLock(mutex, 0) == 0 && SMMutexUnLock(mutex) == 0;
         SMMutexDestroy(mutex);
         return (thread == nullptr || SMThreadStop(thread) == 0) && thread != nullptr && locked;
     }},
    {"files",
     [](const Things& things) {
         char value[100];
         unsigned int size = sizeof value;
         DebugPrint("text");
         return SMWriteINIPathFileValue("Section", "k", 0, "1", 2, things.ini.c_str(), 0) == 0 &&
                SSGetPrivateIniValue("Section", "k", value, &size) == 0 && SMLibLoad("none") == nullptr;
     }},
    {"plans",
     [](const Things&) {
         morlan_set_install_path("/installed/where/nobody/looks");
         return morlan_fail_call("SMLibLoad", 1, 1, 1) == 0 && ral_fail_call("RalListFree", 9, 1, 1) == 0 &&
                mvsim_fail_call("MV_API_Version", 1, 1, 1) == 0;
     }},
    {"objects",
     [](const Things& things) {
         void* const nested = SMSDOConfigAlloc();
         void* const object = SMSDOConfigClone(things.upper);
         const bool isIn = SMSDOConfigAddData(object, 9, SDO_TYPE_SDOCONFIG, nested, 0, 1) == 0;
         if (!isIn)
             SMSDOConfigFree(nested);
         return SMSDOConfigFree(object) == 0 && isIn;
     }},
    {"insertion",
     [](const Things& things) {
         return RalInsertObject(Things::copy(things.other), Things::copy(things.upper)) == 0 &&
                RalInsertObject(Things::copy(things.lower), nullptr) == 0;
     }},
    {"deletion", [](const Things& things) { return RalDeleteObject(things.upper, 0, 0) == 0; }},
    {"links and lists",
     [](const Things& things) {
         void** list = nullptr;
         unsigned int count = 0;
         return RalLinkObjects(things.upper, things.lower) == 0 &&
                RalListAssociatedObjects(things.upper, 2, &list, &count) == 0 &&
                RalListFree(list, count) == 0 && count == 1;
     }},
    {"notification",
     [](const Things& things) { return RalSendNotification(Things::copy(things.other)) == 0; }},
    {"snapshot",
     [](const Things& things) {
         ral_snapshot* const snapshot = ral_snapshot_create();
         const bool whole = ral_snapshot_count(snapshot) == 2;
         ral_snapshot_destroy(snapshot);
         return whole && ral_object_identity(things.upper, nullptr, 0) != 0;
     }},
    // Not a scenario: the parser's values take memory as they go.
    {"the machine",
     [](const Things& things) { return mvsim_load_live(things.root.c_str(), nullptr, nullptr, 0) == 0; }},
    {"entry points",
     [](const Things&) {
         _Adapter_Info info{};
         _Info_Request request{};
         unsigned int count = 0;
         _Event event{};
         return MV_Adapter_GetInfo(0, nullptr, &info) == 0 && MV_PD_GetHDInfo_Ext(0, &request) != 0 &&
                MV_EVT_GetEvent(0, 1, &count, &event) == 0 && mvsim_polls() != 0;
     }},
};

TEST(BordersTest, NoLackOfMemoryCrossesThem)
{
    const TempFolder folder;
    folder.write("f.ini", "[Section]\n");
    std::filesystem::create_directory(folder.path("block"));
    folder.write("scenario.json", FRAME + std::string(ADAPTER) +
                                      R"(], "timeline": [{"poll": 1, "events": [{"code": "diskOnline"}]}]})");
    for (const auto& row : BORDERS) {
        SCOPED_TRACE(row.name);
        bool struck = true;
        for (unsigned int nth = 1; struck; ++nth) {
            {
                const Things things(folder);
                t_nth = nth;
                bool worked = row.works(things);
                struck = t_nth == 0;
                t_nth = 0;
                if (struck && !worked)
                    worked = row.works(things);
                EXPECT_TRUE(worked) << "after allocation " << nth << " failed";
            }
            EXPECT_EQ(morlan_live_sdo_objects() + morlan_live_strings() + morlan_live_mutexes() +
                          ral_live_lists(),
                      0U)
                << "lost as allocation " << nth << " failed";
        }
    }
}

} // namespace
