#include "common/FaultPlan.h"

#include <algorithm>
#include <limits>

namespace devkit
{

FaultPlan::FaultPlan(std::initializer_list<const char*> calls)
{
    for (const char* call : calls)
        m_states.emplace(call, State{0, {}});
}

std::optional<int> FaultPlan::enter(std::string_view call)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    State& state = m_states.at(call);
    const unsigned long long number = ++state.calls;
    const auto struck = std::find_if(state.faults.begin(), state.faults.end(), [number](const Fault& fault) {
        return fault.first <= number && number <= fault.last;
    });
    if (struck == state.faults.end())
        return std::nullopt;
    return struck->status;
}

bool FaultPlan::plan(const char* call, unsigned int nth, unsigned int count, int status)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = call == nullptr ? m_states.end() : m_states.find(call);
    if (found == m_states.end() || nth == 0)
        return false;
    State& state = found->second;
    const unsigned long long first = state.calls + nth;
    const unsigned long long last =
        count == 0 ? std::numeric_limits<unsigned long long>::max() : first + count - 1;
    state.faults.push_back({first, last, status});
    return true;
}

unsigned int FaultPlan::calls(const char* call) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = call == nullptr ? m_states.end() : m_states.find(call);
    return found == m_states.end() ? 0 : static_cast<unsigned int>(found->second.calls);
}

void FaultPlan::clearFaults()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto& [name, state] : m_states)
        state.faults.clear();
}

void FaultPlan::reset()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto& [name, state] : m_states) {
        state.calls = 0;
        state.faults.clear();
    }
}

} // namespace devkit
