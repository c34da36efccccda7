// The simulator's entry points, and what its calls about devices make of a buffer.
#ifndef ZARNEK_TESTS_ANSWER_H
#define ZARNEK_TESTS_ANSWER_H

#include "fuzz/demand.h"
#include <mv.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <vector>

#define DECLARE(symbol, arguments) extern "C" unsigned int symbol arguments;
MV_API_LIST(DECLARE)
#undef DECLARE

using ListCall = unsigned int (*)(unsigned char, _Info_Request*);
using Bytes = std::vector<unsigned char>;
constexpr unsigned char UNTOUCHED = 0xee; // what the library has not written

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

// Has room for a hundred entries at the most.
template <class Request>
Answer ask(unsigned int (*call)(unsigned char, Request*), std::uint8_t type, std::uint16_t start,
           std::uint16_t requested, unsigned char adapter = 0)
{
    Bytes buffer(sizeof(_Info_Request) + (1 + std::min<std::size_t>(requested, 100)) * sizeof(_LD_Info),
                 UNTOUCHED);
    _Info_Request request{0, type, start, requested, 0x7777, {}};
    std::memcpy(buffer.data(), &request, sizeof request);
    Answer answer;
    answer.status = call(adapter, reinterpret_cast<Request*>(buffer.data()));
    std::memcpy(&request, buffer.data(), sizeof request);
    demand(request.StartIndexOrId == start && request.NumRequested == requested, "a request stays as it is");
    answer.returned = request.NumReturned;
    answer.entries.assign(buffer.begin() + sizeof request, buffer.end());
    return answer;
}

// The status flags of a disk; nothing when the call is refused.
inline std::optional<unsigned int> diskStatus(std::uint16_t id)
{
    _HD_RAID_Status_Request request{};
    request.Header = {0, MV_REQUEST_ONE_DEVICE, id, 1, 0, {}};
    const bool told = MV_PD_GetHDRaidStatus(0, &request) == 0;
    return told ? std::optional<unsigned int>(request.RaidStatusFlags) : std::nullopt;
}

#endif
