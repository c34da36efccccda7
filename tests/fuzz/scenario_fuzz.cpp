// Any bytes as a scenario file: it is refused in one line that begins with the file's name, or it is played,
// with the same outcome each time.
#include "common/TempFolder.h"
#include "common/Utf8.h"
#include "mvsim/Answer.h"
#include "mvsim/api/mvsim_control.h"

namespace
{

void addAnswers(std::string& outcome, unsigned char adapter)
{
    const std::pair<ListCall, std::size_t> lists[] = {{MV_PD_GetHDInfo_Ext, sizeof(_HD_Info)},
                                                      {MV_PD_GetConfig, sizeof(_HD_CONFIG)},
                                                      {MV_LD_GetInfo, sizeof(_LD_Info)},
                                                      {MV_LD_GetConfig, sizeof(_LD_Config)}};
    for (const auto& [call, stride] : lists) {
        const Answer answer = ask(call, MV_REQUEST_LIST, 1, 20, adapter);
        demand(answer.isUntouchedFrom(20 * stride), "no more is written than was asked for");
        outcome.append(answer.entries.begin(), answer.entries.end());
    }
    std::array<_Event, MV_MAX_EVENTS + 1> events{};
    unsigned int count = 0;
    MV_EVT_GetEvent(adapter, 0xFFFF, &count, events.data());
    demand(events[MV_MAX_EVENTS].EventCode == 0, "no more events are delivered than a poll may");
    outcome.append(reinterpret_cast<const char*>(events.data()), sizeof events);
}

// The message of a refusal, or what all calls said and wrote until the timeline is through.
std::string outcomeOf(const std::string& file)
{
    std::string outcome(65536, '\0');
    const bool loaded = mvsim_load_scenario(file.c_str(), outcome.data(), outcome.size()) == 0;
    outcome.resize(outcome.find('\0'));
    if (!loaded) {
        demand(outcome.rfind(file + ": ", 0) == 0, "a refusal begins with the file's name");
        demand(devkit::escaped(outcome) == outcome, "a refusal is one line");
        return outcome;
    }
    demand(outcome.empty(), "what is played leaves no message");
    mvsim_set_call_sink([](void* text, const char* line) { *static_cast<std::string*>(text) += line; },
                        &outcome);
    const unsigned int adapters = std::min(MV_Adapter_GetCount(), 3U);
    for (unsigned int polls = std::min(mvsim_last_poll(), 12U) + 1; polls > 0; --polls)
        for (unsigned char adapter = 0; adapter < adapters; ++adapter)
            addAnswers(outcome, adapter);
    mvsim_set_call_sink(nullptr, nullptr);
    return outcome;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TempFolder folder;
    static const std::string file = folder.path("scenario.json");
    std::filesystem::remove(file);
    folder.write("scenario.json", std::string(reinterpret_cast<const char*>(data), size));
    demand(outcomeOf(file) == outcomeOf(file), "a scenario comes out alike each time");
    return 0;
}
