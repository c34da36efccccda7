#include "mvsim/CallRules.h"

#include <algorithm>

namespace mvsim
{

namespace
{

constexpr unsigned int kStatusMask = 0xff; // callers look at no more of a result

std::size_t indexOf(EntryPoint entry)
{
    return static_cast<std::size_t>(entry);
}

} // namespace

void CallRules::setFault(EntryPoint entry, const Fault& fault)
{
    faults_[indexOf(entry)] = fault;
}

void CallRules::setAnswer(EntryPoint entry, const AnswerLength& length)
{
    answers_[indexOf(entry)] = length;
}

void CallRules::merge(const CallRules& later, unsigned int poll)
{
    for (std::size_t i = 0; i < faults_.size(); ++i) {
        if (later.faults_[i]) {
            faults_[i] = later.faults_[i];
            faults_[i]->callsSeen = 0;
            faults_[i]->endsAtPoll = faults_[i]->polls != 0 ? poll + faults_[i]->polls : 0;
        }
        if (later.answers_[i]) {
            answers_[i] = later.answers_[i];
        }
    }
}

void CallRules::dropEnded(unsigned int poll)
{
    for (auto& fault : faults_) {
        if (fault && fault->endsAtPoll != 0 && fault->endsAtPoll <= poll) {
            fault.reset();
        }
    }
}

unsigned int CallRules::lastEnd(unsigned int poll) const
{
    unsigned int last = 0;
    for (const auto& fault : faults_) {
        if (fault && fault->polls != 0) {
            last = std::max(last, poll + fault->polls);
        }
    }
    return last;
}

Verdict CallRules::judge(EntryPoint entry)
{
    auto& fault = faults_[indexOf(entry)];
    if (!fault) {
        return {};
    }
    const unsigned int call = ++fault->callsSeen;
    if (call < fault->firstCall || (fault->calls != 0 && call - fault->firstCall >= fault->calls)) {
        return {};
    }
    return {fault->result, fault->fills || (fault->result & kStatusMask) == 0};
}

AnswerLength CallRules::answer(EntryPoint entry) const
{
    return answers_[indexOf(entry)].value_or(AnswerLength{});
}

} // namespace mvsim
