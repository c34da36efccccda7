// The simulator under test through its C interfaces, with scenarios given as text.
#ifndef ZARNEK_TESTS_SIMTEST_H
#define ZARNEK_TESTS_SIMTEST_H

#include "common/LineLog.h"
#include "common/TempFolder.h"
#include "mvsim/api/mvsim_control.h"
#include <mv.h>

#include <gmock/gmock.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

#define SIMTEST_DECLARE(symbol, arguments) extern "C" unsigned int symbol arguments;
MV_API_LIST(SIMTEST_DECLARE)
#undef SIMTEST_DECLARE

using Bytes = std::vector<unsigned char>;

// A request buffer whose entries come after the header; what the library does not write stays 0xee.
struct Answer {
    unsigned int status = 0;
    unsigned int returned = 0;
    Bytes entries;

    // An entry, or one of its little-endian fields.
    Bytes entry(std::size_t stride, std::size_t index = 0) const
    {
        const auto start = entries.begin() + static_cast<std::ptrdiff_t>(stride * index);
        return {start, start + static_cast<std::ptrdiff_t>(stride)};
    }
    unsigned int word(std::size_t offset) const { return entries[offset] + 256U * entries[offset + 1]; }
};

using ListCall = unsigned int (*)(unsigned char, _Info_Request*);

class SimTest : public testing::Test
{
  protected:
    SimTest() { mvsim_reset(); }
    ~SimTest() override { mvsim_reset(); }

    std::string tryLoad(const std::string& file) const
    {
        std::array<char, 1000> message{};
        const int status = mvsim_load_scenario(file.c_str(), message.data(), message.size());
        EXPECT_EQ(status != 0, message[0] != '\0');
        return message.data();
    }
    void load(const std::string& text)
    {
        m_folder.write("scenario.json", text);
        ASSERT_EQ(tryLoad(m_folder.path("scenario.json")), "");
    }
    // A scenario of one adapter with these members, and these members at top level.
    void loadAdapter(const std::string& members, const std::string& top = "")
    {
        load(R"({"format": 1, "name": "test", "adapters": [{"slot": 0, "maxBufferKB": 64)" +
             (members.empty() ? "" : ", " + members) + "}]" + (top.empty() ? "" : ", " + top) + "}");
    }

    static Answer ask(ListCall call, std::uint8_t type, std::uint16_t start, std::uint16_t requested,
                      unsigned char adapter = 0)
    {
        Bytes buffer(sizeof(_Info_Request) + 16000, 0xee);
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
    // The status flags of a disk; 0x100 and more: a failed call's status.
    static unsigned int diskFlags(std::uint16_t id)
    {
        _HD_RAID_Status_Request request{};
        request.Header.RequestType = MV_REQUEST_ONE_DEVICE;
        request.Header.StartIndexOrId = id;
        request.Header.NumRequested = 1;
        const unsigned int status = MV_PD_GetHDRaidStatus(0, &request);
        return status == 0 ? request.RaidStatusFlags : 0x100 + status;
    }

    // The events of one poll as "class/code/device#sequence".
    static std::vector<std::string> poll(unsigned char adapter = 0, unsigned int maximum = MV_MAX_EVENTS)
    {
        std::array<_Event, MV_MAX_EVENTS> events{};
        unsigned int count = 0;
        EXPECT_EQ(MV_EVT_GetEvent(adapter, maximum, &count, events.data()), 0U);
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < count && i < events.size(); ++i) {
            const _Event& event = events[i];
            texts.push_back(std::to_string(event.EventClass) + "/" + std::to_string(event.EventCode) + "/" +
                            std::to_string(event.EventDeviceId) + "#" + std::to_string(event.EventSequence));
        }
        return texts;
    }

    TempFolder m_folder;
};

#endif
