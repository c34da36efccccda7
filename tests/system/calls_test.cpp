// Each call of the plug-in to the support library, the data engine and the vendor library fails in its turn,
// once and for good, in a life of the plug-in from load to unload.
#include "common/LongForm.h"
#include "system/AllocationFaults.h"

#include "morlan/morlan_inspect.h"
#include "mvsim/api/mvsim_control.h"
#include "ral/ral_inspect.h"

#include <mv.h>

#include <gmock/gmock.h>

#include <fstream>
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
// All that the life makes.
constexpr Call CALLS[] = {
    {&MORLAN, "DebugPrint"},
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
    {&VENDOR, "MV_API_Initialize"},
    {&VENDOR, "MV_API_Finalize"},
    {&VENDOR, "MV_Adapter_GetCount"},
    {&VENDOR, "MV_Adapter_GetInfo"},
    {&VENDOR, "MV_Adapter_GetConfig"},
    {&VENDOR, "MV_PD_GetHDInfo_Ext"},
    {&VENDOR, "MV_PD_GetConfig"},
    {&VENDOR, "MV_PD_GetHDRaidStatus"},
    {&VENDOR, "MV_PD_GetFreeSpaceInfo"},
    {&VENDOR, "MV_LD_GetInfo"},
    {&VENDOR, "MV_LD_GetConfig"},
    {&VENDOR, "MV_Adapter_Get_OEM_Data"},
    {&VENDOR, "MV_EVT_GetEvent"},
};

void PrintTo(const Call& call, std::ostream* stream)
{
    *stream << call.name;
}

// Of the calls the nth (from 1) fails, and with `forGood` all behind it; none for 0.
class CallFaults : public IFaultPlan
{
  public:
    CallFaults(const Call& call, unsigned int nth, bool forGood, bool wholeChains)
        : m_call(call), m_nth(nth), m_forGood(forGood), m_memory(Caller::Plugin, 0, false, wholeChains)
    {
    }
    void begin(Outcome& outcome) override
    {
        m_memory.begin(outcome);
        m_outcome = &outcome;
        m_before = m_call.callee->count(m_call.name);
        if (m_nth != 0)
            m_call.callee->fail(m_call.name, m_nth, m_forGood ? 0 : 1, MV_ERR_FAIL);
    }
    void end() override
    {
        m_memory.end();
        m_outcome->places = m_call.callee->count(m_call.name) - m_before;
        m_call.callee->clear();
    }

  private:
    const Call& m_call;
    unsigned int m_nth;
    bool m_forGood;
    AllocationFaults m_memory; // fails none, and tells what is lost
    Outcome* m_outcome = nullptr;
    unsigned int m_before = 0;
};

class CallsTest : public TestWithParam<Call>
{
  protected:
    Outcome run(unsigned int nth, bool forGood, bool wholeChains = false)
    {
        CallFaults plan(GetParam(), nth, forGood, wholeChains);
        const Outcome outcome = m_fork([&](Outcome& shared) {
            const bool unloaded = m_run.liveUnder(plan, shared);
            std::ofstream log(m_folder.path("log"));
            for (std::string line : m_run.log()) {
                std::replace_if(
                    line.begin(), line.end(), [](unsigned char byte) { return byte < ' '; }, '?');
                log << line << '\n';
            }
            if (unloaded)
                m_run.liveUndisturbed(shared);
        });
        return outcome.losses == 0 || wholeChains ? outcome : run(nth, forGood, true);
    }

    // The last run's lines, and how often each came.
    std::map<std::string, int> lines() const
    {
        std::map<std::string, int> counts;
        std::ifstream log(m_folder.path("log"));
        for (std::string line; std::getline(log, line);)
            ++counts[line];
        return counts;
    }

    TempFolder m_folder;
    ForkedRun m_fork;
    StandardRun m_run;
};

std::string statusesOf(const Outcome& outcome)
{
    std::string text;
    for (const Answer& answer : outcome.answers)
        text += std::to_string(answer.command) + " gives " + std::to_string(answer.status) + " and " +
                std::to_string(answer.value) + "; ";
    return text;
}

// What failures of the call make the commands answer and the plug-in say, each with the number of runs. To
// write the file anew after a wanted change, run this program with ZARNEK_GOLDEN naming the new file.
void expectEffects(const std::string& call, const std::map<std::string, unsigned int>& effects)
{
    std::ostringstream text;
    for (const auto& [effect, runs] : effects)
        text << call << ": " << runs << " times: " << effect << '\n';
    if (const char* const file = std::getenv("ZARNEK_GOLDEN"))
        std::ofstream(file, std::ios::app) << text.str();
    std::istringstream golden(TempFolder::readFile(ZARNEK_SOURCE_DIR "/tests/system/golden/call-failures"));
    std::string wanted;
    for (std::string line; std::getline(golden, line);)
        if (line.rfind(call + ": ", 0) == 0)
            wanted += line + '\n';
    EXPECT_EQ(text.str(), wanted);
}

TEST_P(CallsTest, AFailureIsPassedOver)
{
    m_run.expectUndisturbed(m_fork);
    const unsigned int places = run(0, false).places;
    ASSERT_GT(places, 0U);
    const auto usual = lines();
    unsigned int runs = 0;
    std::map<std::string, unsigned int> effects;
    for (const bool forGood : {false, true}) {
        const bool sparse = forGood || places > 1000;
        for (unsigned int nth = 1; nth <= places; nth += sparse && !longForm() ? SPARSE : DENSE) {
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
            expectNoLoss(outcome);
            if (forGood)
                continue;
            ++effects[statusesOf(outcome)];
            for (const auto& [line, count] : lines())
                if (const auto found = usual.find(line); found == usual.end() || found->second < count)
                    ++effects[line];
        }
    }
    if (DENSE == 1)
        expectEffects(GetParam().name, effects);
    std::cout << "figures: " << GetParam().name << ": " << runs << " runs, in each of which one of " << places
              << " calls failed\n";
}

INSTANTIATE_TEST_SUITE_P(Of, CallsTest, ValuesIn(CALLS),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
