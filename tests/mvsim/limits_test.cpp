// What a scenario may take, and that the stand-ins' C functions survive a lack of memory.
#include "common/SdoObject.h"
#include "common/TempFolder.h"
#include "mvsim/SimTest.h"
#include "ral/ral_inspect.h"

#include <ral.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <utility>

namespace
{

unsigned int t_armed = 0;            // becomes t_nth
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
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}
namespace
{

using testing::HasSubstr;

class LimitsTest : public SimTest
{
  protected:
    TempFolder m_folder;
};

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
        loadScenarioText(text);
        EXPECT_LT(g_taken - before, std::size_t{300} << 20);
        EXPECT_EQ(diskStatus(7), 0U);
        poll();
        poll();
        EXPECT_EQ(diskStatus(7), 2U);
        EXPECT_EQ(mvsim_last_poll(), 40U);
    }
}

// Each makes calls of one library until one fails; true: none did.
bool callMorlan(const TempFolder& folder, void* object)
{
    const std::string ini = folder.path("f.ini");
    t_nth = std::exchange(t_armed, 0);
    morlan_set_install_path("/installed/where/nobody/looks");
    morlan_set_private_ini(ini.c_str());
    DebugPrint("text");
    void* const string = sm_create();
    bool works = GetIniFilePath(string) == 0 && sm_strlen(string) == 29;
    sm_destroy(string);
    sm_destroy(string); // where the first one lacked memory
    void* const mutex = SMMutexCreate(0);
    works = SMMutexLock(mutex, 0) == 0 && SMMutexUnLock(mutex) == 0 && SMMutexDestroy(mutex) == 0 && works;
    void* const thread = SMThreadStart([](void*) {}, nullptr);
    works = SMThreadStop(thread) == 0 && works;
    char value[100];
    unsigned int size = sizeof value;
    works = SMWriteINIPathFileValue("Section", "k", 0, "1", 2, ini.c_str(), 0) == 0 && works &&
            SSGetPrivateIniValue("Section", "k", value, &size) == 0;
    void* const nested = SMSDOConfigAlloc();
    void* const clone = SMSDOConfigClone(object);
    if (SMSDOConfigAddData(clone, 9, SDO_TYPE_SDOCONFIG, nested, 0, 1) != 0)
        works = (SMSDOConfigFree(nested), false);
    return SMSDOConfigFree(clone) == 0 && works && morlan_fail_call("SMLibLoad", 1, 1, 1) == 0;
}

bool callRal(const TempFolder& /*folder*/, void* object)
{
    void* const lower = makeObject({{SSPROP_OBJTYPE_U32, 2}, {7, 2}});
    t_nth = std::exchange(t_armed, 0);
    void** list = nullptr;
    unsigned int count = 0;
    bool works = RalInsertObject(morlan_sdo_clone(object), nullptr) == 0 &&
                 RalInsertObject(morlan_sdo_clone(lower), morlan_sdo_clone(object)) == 0 &&
                 RalLinkObjects(object, lower) == 0 &&
                 RalListAssociatedObjects(object, 2, &list, &count) == 0;
    works = RalListFree(list, count) == 0 && works && RalSendNotification(morlan_sdo_clone(lower)) == 0;
    ral_snapshot* const snapshot = ral_snapshot_create();
    works = works && ral_snapshot_count(snapshot) == 2 && RalDeleteObject(object, 0, 0) == 0;
    ral_snapshot_destroy(snapshot);
    morlan_sdo_free(lower);
    return works && ral_object_identity(object, nullptr, 0) != 0 &&
           ral_fail_call("RalListFree", 9, 1, 1) == 0;
}

// No scenario is loaded without memory: the parser's values take some as they go.
bool callMvsim(const TempFolder& folder, void* /*object*/)
{
    mvsim_load_scenario(folder.path("scenario.json").c_str(), nullptr, 0);
    const std::string root = folder.path();
    t_nth = std::exchange(t_armed, 0);
    _Adapter_Info info{};
    unsigned int count = 0;
    _Event event{};
    return MV_Adapter_GetInfo(0, nullptr, &info) == 0 && MV_EVT_GetEvent(0, 1, &count, &event) == 0 &&
           mvsim_polls() == 1 && mvsim_load_live(root.c_str(), nullptr, nullptr, 0) == 0 &&
           mvsim_fail_call("MV_API_Version", 1, 1, 1) == 0;
}

TEST_F(LimitsTest, NoLackOfMemoryCrossesACBorder)
{
    m_folder.write("f.ini", "[Section]\n");
    std::filesystem::create_directory(m_folder.path("block"));
    m_folder.write("scenario.json",
                   FRAME + std::string(ADAPTER) +
                       R"(], "timeline": [{"poll": 1, "events": [{"code": "diskOnline"}]}]})");
    for (const auto call : {callMorlan, callRal, callMvsim}) {
        bool struck = true;
        for (unsigned int nth = 1; struck; ++nth) {
            for (const auto set :
                 {morlan_set_call_sink, morlan_set_debug_sink, ral_set_call_sink, mvsim_set_call_sink})
                set([](void*, const char*) {}, nullptr);
            void* const object = makeObject({{SSPROP_OBJTYPE_U32, 1}, {7, 1}});
            t_armed = nth;
            const bool worked = call(m_folder, object);
            struck = std::exchange(t_nth, 0) == 0;
            EXPECT_TRUE(worked || struck);
            morlan_sdo_free(object);
            morlan_reset();
            ral_reset();
            mvsim_reset();
            EXPECT_EQ(morlan_live_sdo_objects() + morlan_live_strings() + morlan_live_mutexes() +
                          ral_live_lists(),
                      0U)
                << "lost as allocation " << nth << " failed";
        }
    }
}

} // namespace
