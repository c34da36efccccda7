// The simulator under test through its C interfaces, with scenarios given as text.
#ifndef ZARNEK_TESTS_SIMTEST_H
#define ZARNEK_TESTS_SIMTEST_H

#include "common/LineLog.h"
#include "common/StandIns.h"
#include "mvsim/Answer.h"
#include "mvsim/api/mvsim_control.h"
#include "mvsim/model/EventCodes.h"
#include "mvsim/scenario/RecordCodes.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

// A code of the records in the words of scenarios.
inline std::string wordOf(mvsim::Words words, unsigned int value)
{
    const auto found = std::find_if(words.begin(), words.end(),
                                    [value](const mvsim::Word& word) { return word.value == value; });
    return found == words.end() ? std::to_string(value) : found->text;
}

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
