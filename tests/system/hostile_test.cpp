// Lives of the plug-in with a vendor library whose answers have faults: nothing is read or written where it
// may not be, nothing is lost, and what arrives in the data engine is sound.
#include "common/LongForm.h"
#include "common/SdoObject.h"
#include "mvhostile/mvhostile_control.h"
#include "ral/ral_inspect.h"
#include "system/AllocationFaults.h"

#include <gmock/gmock.h>
#include <sys/mman.h>
#include <unistd.h>

#include <iostream>

namespace
{

// The most characters of a text: those of the record's field. An address runs on into the model's text.
const std::map<unsigned int, std::size_t> WIDTHS{
    {SSPROP_FWVERSION_ASTRING, 19}, {SSPROP_REVISION_ASTRING, 8},   {SSPROP_SERIALNUM_ASTRING, 20},
    {SSPROP_MODEL_ASTRING, 40},     {SSPROP_PRODUCTID_ASTRING, 40}, {SSPROP_SASADDRESS_ASTRING, 40},
    {SSPROP_VENDOR_ASTRING, 4},     {SSPROP_NAME_ASTRING, 255}};

struct Inspection : IFaultPlan {
    explicit Inspection(bool forLosses) : m_forLosses(forLosses) {}
    void begin(Outcome& outcome) override
    {
        outcome.losses = 0;
        if (m_forLosses)
            m_memory.begin(outcome);
    }
    void end() override
    {
        if (m_forLosses)
            m_memory.end();
        ral_snapshot* const snapshot = ral_snapshot_create();
        for (unsigned int index = 0; index < ral_snapshot_count(snapshot); ++index)
            for (const SdoProperty& property : propertiesOf(ral_snapshot_object(snapshot, index))) {
                if (property.type != SDO_TYPE_ASTRING)
                    continue;
                EXPECT_LE(strnlen(static_cast<const char*>(property.value), property.size),
                          std::min<std::size_t>(property.size - 1, WIDTHS.at(property.id)))
                    << property.id;
            }
        ral_snapshot_destroy(snapshot);
        // A virtual disk is inserted twice; a controller and a singly refreshed disk took an answer each.
        EXPECT_LE(ral_call_count("RalInsertObject"), 2 * mvhostile_entries() + mvhostile_answers());
    }

  private:
    bool m_forLosses;
    AllocationFaults m_memory{Caller::Plugin, 0, false, true}; // fails none, and tells what is lost
};

TEST(HostileTest, NoAnswerOfTheVendorBreaksThePlugin)
{
    constexpr unsigned int LIVES = 20, SECONDS = 600; // of a process; for one life
    constexpr unsigned int SLOW = 8;                  // each such life is looked at for what it loses
    ForkedRun fork;
    StandardRun run;
    run.expectUndisturbed(fork);
    // Answers, and behind them the strikes of each fault.
    auto* const counts = static_cast<unsigned long long*>(
        mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    ASSERT_NE(counts, MAP_FAILED);
    const char* const seed = std::getenv("MVHOSTILE_SEED"); // to begin with
    const unsigned int first = seed != nullptr ? static_cast<unsigned int>(std::stoul(seed)) : 1;
    unsigned int lives = 0;
    for (; counts[0] < rounds(40'000, 10'000'000); lives += LIVES) {
        const Outcome outcome = fork([&](Outcome& shared) {
            morlan_set_debug_sink([](void*, const char*) {}, nullptr); // millions of lines for nobody
            run.nameVendorLibrary("libmvhostile");
            // The seed, told from where nothing else strikes.
            for (shared.strikes = first + lives; shared.strikes < first + lives + LIVES; ++shared.strikes) {
                alarm(SECONDS);
                mvhostile_start(shared.strikes, nullptr);
                Inspection inspection(shared.strikes % SLOW == 0);
                run.liveUnder(inspection, shared);
                expectNoLoss(shared);
                for (const Answer& answer : shared.answers) {
                    EXPECT_EQ(answer.thrown, Thrown::Nothing);
                    StandardRun::expectOwnAnswer(answer, 255);
                }
                counts[0] += mvhostile_answers();
                for (unsigned int fault = 0; mvhostile_fault_name(fault) != nullptr; ++fault)
                    counts[1 + fault] += mvhostile_strikes(fault);
                if (shared.faults[0] != '\0' || testing::Test::HasFailure())
                    return;
            }
            run.nameVendorLibrary("libmvsim");
            run.liveUndisturbed(shared);
        });
        ASSERT_TRUE(outcome.end == RunEnd::Finished && outcome.strikes == first + lives + LIVES)
            << "seed " << outcome.strikes << ": " << outcome.faults.data();
        ASSERT_STREQ(outcome.faults.data(), "");
    }
    std::cout << "figures: " << counts[0] << " answers in " << lives << " lives";
    for (unsigned int fault = 0; const char* const name = mvhostile_fault_name(fault); ++fault) {
        EXPECT_TRUE(seed != nullptr || counts[1 + fault] != 0)
            << mvhostile_fault_effect(fault) << ": in no answer";
        std::cout << "; " << counts[1 + fault] << ' ' << name;
    }
    std::cout << '\n';
}

} // namespace
