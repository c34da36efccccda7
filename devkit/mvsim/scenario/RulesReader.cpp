#include "mvsim/scenario/RulesReader.h"

#include <vector>

namespace mvsim
{

namespace
{

constexpr unsigned int MOST_CLAIMED = 0xffff; // what NumReturned can hold

using EntryTest = bool (*)(EntryPoint entry, bool libraryWide);

// A result of the count call would read as a count, so it cannot fail; it can only miscount.
bool canFail(EntryPoint entry, bool libraryWide)
{
    return isLibraryWide(entry) == libraryWide && entry != EntryPoint::MV_Adapter_GetCount;
}

bool hasLength(EntryPoint entry, bool libraryWide)
{
    if (libraryWide)
        return entry == EntryPoint::MV_Adapter_GetCount;
    switch (entry) {
    case EntryPoint::MV_PD_GetHDInfo_Ext:
    case EntryPoint::MV_PD_GetConfig:
    case EntryPoint::MV_PD_GetHDRaidStatus:
    case EntryPoint::MV_PD_GetFreeSpaceInfo:
    case EntryPoint::MV_LD_GetInfo:
    case EntryPoint::MV_LD_GetConfig:
    case EntryPoint::MV_EVT_GetEvent:
        return true;
    default:
        return false;
    }
}

// Calls `read(entry, rules)` for each entry point that has a rule in the member `key`.
template <class Read>
void eachEntry(StrictObject& object, const char* key, EntryTest test, bool libraryWide, Read read)
{
    const Json* value = object.find(key);
    if (value == nullptr)
        return;
    StrictObject rules(*value, object.place(key));
    for (std::size_t i = 0; i < ENTRY_POINT_NAMES.size(); ++i) {
        const auto entry = static_cast<EntryPoint>(i);
        if (test(entry, libraryWide) && rules.find(nameOf(entry)) != nullptr)
            read(entry, rules);
    }
    rules.finish();
}

Fault readFault(StrictObject& rules, const char* key)
{
    Fault fault;
    const Json& value = *rules.find(key);
    if (!value.is_object()) {
        fault.result = *rules.number<std::uint32_t>(key);
        return fault;
    }
    StrictObject object(value, rules.place(key));
    fault.result = object.needed("status", object.number<std::uint32_t>("status"));
    fault.firstCall = object.number<std::uint32_t>("from", 1).value_or(1);
    fault.calls = object.number<std::uint32_t>("calls", 1).value_or(0);
    fault.polls = object.number<std::uint16_t>("polls", 1).value_or(0);
    fault.fills = object.flag("filled").value_or(false);
    object.finish();
    return fault;
}

} // namespace

CallRules readRules(StrictObject& object, bool libraryWide)
{
    CallRules result;
    eachEntry(object, "fail", &canFail, libraryWide, [&result](EntryPoint entry, StrictObject& rules) {
        result.setFault(entry, readFault(rules, nameOf(entry)));
    });
    eachEntry(object, "answers", &hasLength, libraryWide, [&result](EntryPoint entry, StrictObject& rules) {
        StrictObject length(*rules.find(nameOf(entry)), rules.place(nameOf(entry)));
        AnswerLength answer;
        if (!isLibraryWide(entry)) {
            answer.entries = length.number<std::uint16_t>("entries");
        }
        answer.count = length.number<std::uint32_t>("count");
        if (entry != EntryPoint::MV_Adapter_GetCount && entry != EntryPoint::MV_EVT_GetEvent &&
            answer.count.value_or(0) > MOST_CLAIMED) {
            throw FormatError(length.place("count"),
                              "a whole number from 0 to " + std::to_string(MOST_CLAIMED),
                              std::to_string(*answer.count));
        }
        length.finish();
        result.setAnswer(entry, answer);
    });
    return result;
}

} // namespace mvsim
