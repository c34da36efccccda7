// Which calls of a stand-in library fail by plan, and how often each call was made. Safe from several
// threads.
#ifndef ZARNEK_DEVKIT_COMMON_FAULTPLAN_H
#define ZARNEK_DEVKIT_COMMON_FAULTPLAN_H

#include <initializer_list>
#include <mutex>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace devkit
{

class FaultPlan
{
  public:
    // The names of the library's calls, kept and not copied; no others are known to the plan.
    explicit FaultPlan(std::initializer_list<const char*> calls);

    // Counts one call and gives the status that it is to fail with, if it is to fail. Where several plans
    // meet at one call, the oldest decides. `call` has to be known.
    std::optional<int> enter(std::string_view call);

    // Of the calls of `call` from now on, the nth (from 1) and the count - 1 behind it fail with `status`,
    // all of them for a count of 0. False, and nothing planned, for an unknown call or an nth of 0.
    bool plan(const char* call, unsigned int nth, unsigned int count, int status);

    // How often `call` was entered since construction or the last reset; 0 for an unknown one.
    unsigned int calls(const char* call) const;

    void clearFaults();
    // Forgets the plans and starts counting anew.
    void reset();

  private:
    struct Fault {
        unsigned long long first; // number of the first call that fails, from 1
        unsigned long long last;  // number of the last one
        int status;
    };
    struct State {
        unsigned long long calls;
        std::vector<Fault> faults;
    };

    mutable std::mutex m_mutex;
    std::unordered_map<std::string_view, State> m_states;
};

} // namespace devkit

#endif
