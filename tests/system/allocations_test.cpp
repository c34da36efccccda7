// Each allocation of the plug-in fails in its turn, once and for good, in a life of the plug-in from load to
// unload. What may come of it stands in the tables below; anything else is a fault.
#include "common/LongForm.h"
#include "system/AllocationFaults.h"
#include "system/Design.h"

#include <zarnek.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <iostream>

using namespace testing;

namespace
{

// Once: an allocation fails. ForGood: so do all behind it. Of stand-ins, calls fail for it, and nothing else.
struct Sweep {
    const char* name;
    Caller caller;
    bool forGood;
    unsigned int stride;
};
const Sweep SWEEPS[] = {
    {"Once", Caller::Plugin, false, DENSE},
    {"ForGood", Caller::Plugin, true, SPARSE},
    {"OfStandIns", Caller::StandIn, false, SPARSE},
};

void PrintTo(const Sweep& sweep, std::ostream* stream)
{
    *stream << sweep.name;
}

class AllocationsTest : public TestWithParam<Sweep>
{
  protected:
    Outcome run(unsigned int nth, bool wholeChains = false)
    {
        AllocationFaults plan(GetParam().caller, nth, GetParam().forGood, wholeChains);
        const Outcome outcome = m_fork([&](Outcome& shared) { m_run.disturbed(plan, shared); });
        return outcome.losses == 0 || wholeChains ? outcome : run(nth, true);
    }

    // Counts how a run ended, and tells what nobody designed.
    void judge(const Outcome& outcome)
    {
        const Answer& last = outcome.answers[outcome.answerCount - 1];
        if (outcome.end == RunEnd::Terminated) {
            const std::string chain = m_names.text(outcome.struck[(outcome.strikes - 1) % Outcome::KEPT]);
            EXPECT_TRUE(outcome.onEventThread && outcome.uncaught == Thrown::BadAlloc);
            EXPECT_THAT(chain, Not(HasSubstr("::~"))) << "a destructor may not throw";
            return expectDesign(What::Terminates, last.command, chain, "ended the process");
        }
        if (outcome.end == RunEnd::Died) {
            std::string chains;
            for (unsigned int i = 0; i < std::min(outcome.strikes, Outcome::KEPT); ++i)
                chains += m_names.text(outcome.struck[i]);
            return expectDesign(What::Crashes, last.command, chains, "crashed");
        }
        for (const Answer& answer : outcome.answers) {
            EXPECT_NE(answer.thrown, Thrown::Other);
            if (answer.thrown == Thrown::BadAlloc)
                expectDesign(What::Throws, answer.command, m_names.text(answer.struck), "threw");
            StandardRun::expectOwnAnswer(answer);
        }
        for (unsigned int i = 0; i < std::min(outcome.losses, Outcome::LOST); ++i)
            expectDesign(What::Loses, last.command, m_names.text(outcome.lost[i]), "lost a piece of memory");
        EXPECT_THAT(std::string(outcome.faults.data()),
                    AnyOf("", MatchesRegex(ofPlugin() ? "" : StandardRun::HELD)));
        ++m_figures["gave its answers"];
    }

    void expectDesign(What what, unsigned int command, const std::string& chain, const std::string& event)
    {
        const char* const why = ofPlugin() ? designOf(what, command, chain) : nullptr;
        if (why == nullptr)
            ADD_FAILURE() << "command " << command << ' ' << event << ", which nobody designed:\n" << chain;
        else
            ++m_figures[event + ": " + why];
    }

    static bool ofPlugin() { return GetParam().caller == Caller::Plugin; }

    ForkedRun m_fork;
    StandardRun m_run;
    FunctionNames m_names;
    std::map<std::string, unsigned int> m_figures;
};

TEST_P(AllocationsTest, EachFailureEndsAsDesigned)
{
    m_run.expectUndisturbed(m_fork);
    const Outcome whole = run(0);
    judge(whole);
    m_figures.clear();

    std::map<unsigned int, Outcome> outcomes;
    for (unsigned int nth = 1; nth <= whole.places; nth += longForm() ? 1 : GetParam().stride) {
        const Outcome& outcome = outcomes[nth] = run(nth);
        ASSERT_GE(outcome.strikes, 1U) << "the runs differ";
        for (const CallChain& chain : outcome.struck)
            m_names.want(chain);
        for (const CallChain& chain : outcome.lost)
            m_names.want(chain);
        for (const Answer& answer : outcome.answers)
            m_names.want(answer.struck);
    }
    m_names.find();
    for (const auto& [nth, outcome] : outcomes) {
        SCOPED_TRACE("allocation " + std::to_string(nth));
        judge(outcome);
    }
    std::cout << "figures: " << outcomes.size() << " of " << whole.places
              << " allocations failed; the plug-in";
    for (const auto& [kind, count] : m_figures)
        std::cout << "; " << count << ' ' << kind;
    std::cout << '\n';
}

INSTANTIATE_TEST_SUITE_P(All, AllocationsTest, ValuesIn(SWEEPS),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
