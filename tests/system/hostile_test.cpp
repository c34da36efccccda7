// Lives of the plug-in with a vendor library whose answers have faults: nothing is read or written where it
// may not be, nothing is lost, and what arrives in the data engine is sound.
#include "system/StandardRun.h"

#include "common/SdoObject.h"
#include "mvhostile/mvhostile_control.h"
#include "ral/ral_inspect.h"

#include <gmock/gmock.h>
#include <sys/mman.h>
#include <unistd.h>

#include <iostream>

namespace
{

// The most characters of a text: those of the record's field. An address runs on into the model's text.
struct Width {
    unsigned int property;
    std::size_t width;
};
constexpr Width WIDTHS[] = {
    {SSPROP_FWVERSION_ASTRING, 19}, {SSPROP_REVISION_ASTRING, 8},    {SSPROP_SERIALNUM_ASTRING, 20},
    {SSPROP_MODEL_ASTRING, 40},     {SSPROP_PRODUCTID_ASTRING, 40},  {SSPROP_VENDOR_ASTRING, 4},
    {SSPROP_NAME_ASTRING, 255},     {SSPROP_SASADDRESS_ASTRING, 40},
};

void expectSoundTexts(const void* object)
{
    for (const SdoProperty& property : propertiesOf(object)) {
        if (property.type != SDO_TYPE_ASTRING)
            continue;
        const auto* const row = std::find_if(std::begin(WIDTHS), std::end(WIDTHS),
                                             [&](const Width& w) { return w.property == property.id; });
        ASSERT_NE(row, std::end(WIDTHS)) << property.id;
        EXPECT_LE(strnlen(static_cast<const char*>(property.value), property.size), row->width)
            << property.id;
        EXPECT_GT(property.size, row->width) << property.id;
    }
}

struct HostileVendor : IFaultPlan {
    explicit HostileVendor(unsigned int seed) : m_seed(seed) {}
    void begin(Outcome&) override
    {
        morlan_set_debug_sink([](void*, const char*) {}, nullptr); // millions of lines that nobody reads
        mvhostile_start(m_seed, nullptr);
    }
    void end() override
    {
        ral_snapshot* const snapshot = ral_snapshot_create();
        for (unsigned int index = 0; index < ral_snapshot_count(snapshot); ++index)
            expectSoundTexts(ral_snapshot_object(snapshot, index));
        ral_snapshot_destroy(snapshot);
        // A virtual disk is inserted twice; a controller, and a disk that is refreshed singly, took more than
        // one answer.
        EXPECT_LE(ral_call_count("RalInsertObject"), 2 * mvhostile_entries() + mvhostile_answers());
    }

    unsigned int m_seed;
};

TEST(HostileTest, NoAnswerOfTheVendorBreaksThePlugin)
{
    constexpr unsigned int LIVES = 20, SECONDS = 60; // of a process; for one life
    const unsigned long long wanted = std::getenv("ZARNEK_LONG") != nullptr ? 10'000'000 : 10'000;
    ForkedRun fork;
    StandardRun run;
    run.expectUndisturbed(fork);
    // Answers, and behind them the strikes of each fault.
    auto* const counts = static_cast<unsigned long long*>(
        mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    ASSERT_NE(counts, MAP_FAILED);
    unsigned int lives = 0;
    while (counts[0] < wanted) {
        const Outcome outcome = fork([&](Outcome& shared) {
            run.nameVendorLibrary("libmvhostile");
            for (shared.places = lives + 1; shared.places <= lives + LIVES; ++shared.places) {
                alarm(SECONDS);
                HostileVendor vendor(shared.places);
                run.liveUnder(vendor, shared);
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
        ASSERT_EQ(outcome.end, RunEnd::Finished) << "seed " << outcome.places;
        ASSERT_STREQ(outcome.faults.data(), "") << "seed " << outcome.places;
        ASSERT_EQ(outcome.places, lives + LIVES + 1) << "that is the seed of the failure above";
        lives += LIVES;
    }
    std::cout << counts[0] << " answers in " << lives << " lives; in so many of them\n";
    for (unsigned int fault = 0; const char* const name = mvhostile_fault_name(fault); ++fault) {
        EXPECT_NE(counts[1 + fault], 0U) << name << " was in no answer";
        std::cout << "    " << counts[1 + fault] << ' ' << name << '\n';
    }
}

} // namespace
