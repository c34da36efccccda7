// Each call of the plug-in to the support library, the data engine and the vendor library fails in its turn,
// once and for good, in a life of the plug-in from load to unload.
#include "common/LongForm.h"
#include "system/StandardRun.h"

#include "morlan/morlan_inspect.h"
#include "mvsim/api/mvsim_control.h"
#include "ral/ral_inspect.h"

#include <mv.h>

#include <gmock/gmock.h>

#include <iostream>

using namespace testing;

namespace
{

struct Library {
    int (*fail)(const char* call, unsigned int nth, unsigned int count, int status);
    void (*clear)();
    unsigned int (*count)(const char* call);
};
constexpr Library MORLAN{morlan_fail_call, morlan_clear_faults, morlan_call_count};
constexpr Library RAL{ral_fail_call, ral_clear_faults, ral_call_count};
constexpr Library VENDOR{mvsim_fail_call, mvsim_clear_faults, mvsim_call_count};

struct Call {
    const Library* callee;
    const char* name;
    bool loses = false; // what it was to give back, or an object that nobody takes, stays with the stand-ins
};
constexpr Call CALLS[] = {
    {&MORLAN, "SMMutexCreate"},
    {&MORLAN, "SMMutexLock"},
    {&MORLAN, "SMMutexUnLock", true},
    {&MORLAN, "SMMutexDestroy", true},
    {&MORLAN, "SMThreadStart"},
    {&MORLAN, "SMLibLoad"},
    {&MORLAN, "SMLibUnLoad"},
    {&MORLAN, "sm_create"},
    {&MORLAN, "sm_strlen"},
    {&MORLAN, "sm_destroy", true},
    {&MORLAN, "GetIniFilePath"},
    {&MORLAN, "SSGetPrivateIniValue"},
    {&MORLAN, "SMWriteINIPathFileValue"},
    {&MORLAN, "SMSDOConfigAlloc", true}, // the notification of an alert that has no object of its own
    {&MORLAN, "SMSDOConfigFree", true},
    {&MORLAN, "SMSDOConfigClone"},
    {&MORLAN, "SMSDOConfigAddData", true}, // the notification that an alert's object refuses
    {&MORLAN, "SMSDOConfigGetDataByID"},
    {&RAL, "RalInsertObject"},
    {&RAL, "RalLinkObjects"},
    {&RAL, "RalListAssociatedObjects"},
    {&RAL, "RalListFree", true},
    {&RAL, "RalSendNotification"},
#define VENDOR_CALL(symbol, arguments) {&VENDOR, #symbol},
    MV_API_LIST(VENDOR_CALL)
#undef VENDOR_CALL
};

void PrintTo(const Call& call, std::ostream* stream)
{
    *stream << call.name;
}

// Of the calls the nth (from 1) fails, and with `forGood` all behind it; none for 0.
class CallFaults : public IFaultPlan
{
  public:
    CallFaults(const Call& call, unsigned int nth, bool forGood)
        : m_call(call), m_nth(nth), m_forGood(forGood)
    {
    }
    void begin(Outcome& outcome) override
    {
        m_outcome = &outcome;
        m_before = m_call.callee->count(m_call.name);
        if (m_nth != 0)
            m_call.callee->fail(m_call.name, m_nth, m_forGood ? 0 : 1, MV_ERR_FAIL);
    }
    void end() override
    {
        m_outcome->places = m_call.callee->count(m_call.name) - m_before;
        m_call.callee->clear();
    }

  private:
    const Call& m_call;
    unsigned int m_nth;
    bool m_forGood;
    Outcome* m_outcome = nullptr;
    unsigned int m_before = 0;
};

class CallsTest : public TestWithParam<Call>
{
  protected:
    Outcome run(unsigned int nth, bool forGood)
    {
        CallFaults plan(GetParam(), nth, forGood);
        return m_fork([&](Outcome& shared) { m_run.disturbed(plan, shared); });
    }

    ForkedRun m_fork;
    StandardRun m_run;
};

TEST_P(CallsTest, AFailureIsPassedOver)
{
    m_run.expectUndisturbed(m_fork);
    const unsigned int places = run(0, false).places;
    unsigned int runs = 0;
    for (const bool forGood : {false, true}) {
        for (unsigned int nth = 1; nth <= places; nth += forGood && !longForm() ? SPARSE : DENSE) {
            SCOPED_TRACE("call " + std::to_string(nth) + (forGood ? " and all behind it" : ""));
            const Outcome outcome = run(nth, forGood);
            ++runs;
            ASSERT_EQ(outcome.end, RunEnd::Finished);
            for (const Answer& answer : outcome.answers) {
                EXPECT_EQ(answer.thrown, Thrown::Nothing);
                StandardRun::expectOwnAnswer(answer);
            }
            EXPECT_THAT(std::string(outcome.faults.data()),
                        AnyOf("", MatchesRegex(GetParam().loses ? StandardRun::HELD : "")));
        }
    }
    std::cout << "figures: " << GetParam().name << ": " << runs << " runs, in each of which one of " << places
              << " calls failed\n";
}

INSTANTIATE_TEST_SUITE_P(Of, CallsTest, ValuesIn(CALLS),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
