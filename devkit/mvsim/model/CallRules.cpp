#include "mvsim/model/CallRules.h"

#include <algorithm>

namespace mvsim
{

namespace
{

std::size_t indexOf(EntryPoint entry)
{
    return static_cast<std::size_t>(entry);
}

} // namespace

std::size_t AnswerLength::filled(std::size_t available) const
{
    return std::min<std::size_t>({available, entries.value_or(~0U), count.value_or(~0U)});
}

void CallRules::setFault(EntryPoint entry, const Fault& fault)
{
    m_faults[indexOf(entry)] = fault;
}

void CallRules::setAnswer(EntryPoint entry, const AnswerLength& length)
{
    m_answers[indexOf(entry)] = length;
}

void CallRules::merge(const CallRules& later, unsigned int poll)
{
    for (std::size_t i = 0; i < m_faults.size(); ++i) {
        if (later.m_faults[i]) {
            m_faults[i] = later.m_faults[i];
            m_faults[i]->callsSeen = 0;
            m_faults[i]->endsAtPoll = m_faults[i]->polls != 0 ? poll + m_faults[i]->polls : 0;
        }
        if (later.m_answers[i])
            m_answers[i] = later.m_answers[i];
    }
}

void CallRules::dropEnded(unsigned int poll)
{
    for (auto& fault : m_faults)
        if (fault && fault->endsAtPoll != 0 && fault->endsAtPoll <= poll)
            fault.reset();
}

unsigned int CallRules::lastEnd(unsigned int poll) const
{
    unsigned int last = 0;
    for (const auto& fault : m_faults)
        if (fault && fault->polls != 0)
            last = std::max(last, poll + fault->polls);
    return last;
}

Verdict CallRules::judge(EntryPoint entry)
{
    auto& fault = m_faults[indexOf(entry)];
    if (!fault)
        return {};
    const unsigned int call = ++fault->callsSeen;
    if (call < fault->firstCall || (fault->calls != 0 && call - fault->firstCall >= fault->calls))
        return {};
    return {fault->result, fault->fills || isSuccess(fault->result)};
}

AnswerLength CallRules::answer(EntryPoint entry) const
{
    return m_answers[indexOf(entry)].value_or(AnswerLength{});
}

} // namespace mvsim
