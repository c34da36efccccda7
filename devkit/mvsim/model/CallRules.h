// What a scenario demands of single calls: statuses instead of answers, and answers of another length. One
// object serves one adapter, or the calls that concern the whole library. Not synchronised.
#ifndef ZARNEK_DEVKIT_MVSIM_CALLRULES_H
#define ZARNEK_DEVKIT_MVSIM_CALLRULES_H

#include "mvsim/model/EntryPoint.h"

#include <array>
#include <optional>

namespace mvsim
{

// A planned result. One whose low byte is 0 reads as success, so the call then answers as usual.
struct Fault {
    unsigned int result = 0;
    unsigned int firstCall = 1;  // counted from when the rule comes into force
    unsigned int calls = 0;      // how many calls it strikes; 0: all from the first on
    unsigned int polls = 0;      // for how many polls it is in force; 0: for good
    bool fills = false;          // the answer is filled in all the same
    unsigned int callsSeen = 0;  // since it came into force
    unsigned int endsAtPoll = 0; // it is dropped when this poll begins; 0: never
};

// Unset: as the adapter has it.
struct AnswerLength {
    std::optional<unsigned int> entries; // at most so many are filled
    std::optional<unsigned int> count;   // so many are claimed; no more than that are filled

    // How many of `available` entries are filled in.
    std::size_t filled(std::size_t available) const;
};

struct Verdict {
    unsigned int result = 0;
    bool fills = true; // false: the call leaves the caller's memory alone
};

class CallRules
{
  public:
    void setFault(EntryPoint entry, const Fault& fault);
    void setAnswer(EntryPoint entry, const AnswerLength& length);

    // Puts the rules of `later` in force at a poll; calls that it does not name keep theirs.
    void merge(const CallRules& later, unsigned int poll);
    void dropEnded(unsigned int poll);
    // The last poll at which a rule ends that comes into force at `poll`; 0 when none ends.
    unsigned int lastEnd(unsigned int poll) const;

    // Counts a call and tells its fate.
    Verdict judge(EntryPoint entry);
    AnswerLength answer(EntryPoint entry) const;

  private:
    std::array<std::optional<Fault>, ENTRY_POINT_NAMES.size()> m_faults;
    std::array<std::optional<AnswerLength>, ENTRY_POINT_NAMES.size()> m_answers;
};

} // namespace mvsim

#endif
