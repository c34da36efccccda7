// The simulator under test through its C interfaces, with scenarios given as text.
#ifndef ZARNEK_TESTS_SIMTEST_H
#define ZARNEK_TESTS_SIMTEST_H

#include "common/LineLog.h"
#include "common/StandIns.h"
#include "mvsim/api/mvsim_control.h"
#include "mvsim/model/EventCodes.h"
#include "mvsim/scenario/RecordCodes.h"
#include <mv.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#define SIMTEST_DECLARE(symbol, arguments) extern "C" unsigned int symbol arguments;
MV_API_LIST(SIMTEST_DECLARE)
#undef SIMTEST_DECLARE

using Bytes = std::vector<unsigned char>;
constexpr unsigned char UNTOUCHED = 0xee; // what the library has not written

// What a list call has made of a buffer.
struct Answer {
    unsigned int status = 0;
    unsigned int returned = 0;
    Bytes entries; // all behind the header

    template <class Record>
    Record entry(std::size_t index) const
    {
        Record record;
        std::memcpy(&record, entries.data() + index * sizeof record, sizeof record);
        return record;
    }
    bool isUntouchedFrom(std::size_t offset) const
    {
        return std::all_of(entries.begin() + static_cast<std::ptrdiff_t>(offset), entries.end(),
                           [](unsigned char byte) { return byte == UNTOUCHED; });
    }
};

// A code of the records in the words of scenarios.
inline std::string wordOf(mvsim::Words words, unsigned int value)
{
    const auto found = std::find_if(words.begin(), words.end(),
                                    [value](const mvsim::Word& word) { return word.value == value; });
    return found == words.end() ? std::to_string(value) : found->text;
}

using ListCall = unsigned int (*)(unsigned char, _Info_Request*);

class SimTest : public testing::Test, protected StandIns
{
  protected:
    // The message, which is empty when the file loads.
    static std::string tryLoad(const std::string& file)
    {
        std::array<char, 1000> message{};
        const int status = mvsim_load_scenario(file.c_str(), message.data(), message.size());
        EXPECT_EQ(status != 0, message[0] != '\0');
        return message.data();
    }
    static std::string scenarioFile(const std::string& name)
    {
        return MVSIM_TESTS_FOLDER "/scenarios/" + name;
    }

    static Answer ask(ListCall call, std::uint8_t type, std::uint16_t start, std::uint16_t requested,
                      unsigned char adapter = 0)
    {
        Bytes buffer(sizeof(_Info_Request) + 16000, UNTOUCHED);
        _Info_Request request{0, type, start, requested, 0x7777, {}};
        std::memcpy(buffer.data(), &request, sizeof request);
        Answer answer;
        answer.status = call(adapter, reinterpret_cast<_Info_Request*>(buffer.data()));
        std::memcpy(&request, buffer.data(), sizeof request);
        EXPECT_EQ(request.StartIndexOrId, start);
        EXPECT_EQ(request.NumRequested, requested);
        answer.returned = request.NumReturned;
        answer.entries.assign(buffer.begin() + sizeof request, buffer.end());
        return answer;
    }
    static Answer list(ListCall call, std::uint16_t requested = 20, unsigned char adapter = 0)
    {
        return ask(call, MV_REQUEST_LIST, 0, requested, adapter);
    }
    static std::vector<unsigned int> diskIds(unsigned char adapter = 0)
    {
        const Answer answer = list(&MV_PD_GetHDInfo_Ext, 20, adapter);
        std::vector<unsigned int> ids;
        for (unsigned int i = 0; i < answer.returned; ++i)
            ids.push_back(answer.entry<_HD_Info>(i).HD_Id);
        return ids;
    }
    // The status flags of a disk; nothing when the call is refused.
    static std::optional<unsigned int> diskStatus(std::uint16_t id)
    {
        _HD_RAID_Status_Request request{};
        request.Header = {0, MV_REQUEST_ONE_DEVICE, id, 1, 0, {}};
        const bool told = MV_PD_GetHDRaidStatus(0, &request) == 0;
        return told ? std::optional<unsigned int>(request.RaidStatusFlags) : std::nullopt;
    }
    static unsigned int configStatus()
    {
        _Adapter_Config_V2 config{};
        return MV_Adapter_GetConfig(0, nullptr, &config);
    }

    // The events of one poll, such as "7: diskFailed 3": sequence number, name, device.
    static std::vector<std::string> poll(unsigned char adapter = 0, unsigned int maximum = MV_MAX_EVENTS)
    {
        std::array<_Event, MV_MAX_EVENTS> events{};
        unsigned int count = 0;
        EXPECT_EQ(MV_EVT_GetEvent(adapter, maximum, &count, events.data()), 0U);
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < count && i < events.size(); ++i) {
            const _Event& event = events[i];
            std::string name = std::to_string(event.EventClass) + "/" + std::to_string(event.EventCode);
            for (const mvsim::EventCode& row : mvsim::EVENT_CODES) {
                if (row.eventClass == event.EventClass && row.code == event.EventCode)
                    name = row.name;
            }
            texts.push_back(std::to_string(event.EventSequence) + ": " + name + " " +
                            std::to_string(event.EventDeviceId));
        }
        return texts;
    }
};

#endif
