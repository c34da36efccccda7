// What a scenario may take.
#include "common/TempFolder.h"
#include "mvsim/SimTest.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace
{

std::atomic<std::size_t> g_taken{0}; // bytes of all allocations
constexpr int ALL = std::numeric_limits<int>::max();
std::atomic<int> g_left{ALL}; // allocations until there is no more memory

} // namespace

void* operator new(std::size_t size, const std::nothrow_t& /*form*/) noexcept
{
    g_taken += size;
    return --g_left < 0 ? nullptr : std::malloc(size);
}
void* operator new(std::size_t size)
{
    void* const memory = operator new(size, std::nothrow);
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

// With a little more memory each time, until it is enough.
TEST_F(LimitsTest, WantOfMemoryRefusesAScenarioAndPutsAStepOff)
{
    const std::string file = m_folder.path("scenario.json");
    m_folder.write("scenario.json",
                   FRAME + std::string(R"({"slot": 0, "maxBufferKB": 64, "disks": [{"id": 1, "slot": 1}]}],
        "timeline": [{"poll": 1, "disks": [{"id": 1, "raidStatus": 4}], "events": [{"code": "diskFailed", "repeat": 50}]}]})"));
    std::array<char, 200> message{};
    for (int enough = 0, left = -1; left < 0; ++enough) {
        g_left = enough;
        const int status = mvsim_load_scenario(file.c_str(), message.data(), message.size());
        left = g_left.exchange(ALL);
        EXPECT_EQ(message.data(), status == 0 ? "" : file + ": takes more memory than there is");
    }
    std::array<_Event, MV_MAX_EVENTS> events{};
    for (int enough = 0, left = -1; left < 0; ++enough) {
        unsigned int count = 0;
        g_left = enough;
        MV_EVT_GetEvent(0, MV_MAX_EVENTS, &count, events.data());
        left = g_left.exchange(ALL);
        EXPECT_EQ(diskStatus(1), mvsim_polls() != 0 ? 4U : 0U);
    }
}

} // namespace
