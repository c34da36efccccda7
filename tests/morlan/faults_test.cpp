// When a planned failure strikes. What fails with it is shown where the calls are made.
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{

TEST(Faults, PlansAddUp)
{
    for (const char* name : {"DebugPrint", "sm_strlen", "sm_destroy", "SMThreadPause", ""})
        EXPECT_NE(morlan_fail_call(name, 1, 1, 1), 0) << name;
    EXPECT_NE(morlan_fail_call(nullptr, 1, 1, 1), 0);
    EXPECT_NE(morlan_fail_call("sm_create", 0, 1, 1), 0);

    void* const string = sm_create();
    morlan_set_install_path("/install");
    const auto expectStatuses = [string](const std::vector<int>& statuses) {
        for (const int expected : statuses)
            EXPECT_EQ(GetIniFilePath(string), expected);
    };
    morlan_fail_call("GetIniFilePath", 2, 2, 11);
    morlan_fail_call("GetIniFilePath", 3, 2, 22);
    expectStatuses({0, 11, 11, 22, 0}); // where two meet, the older one decides
    morlan_fail_call("GetIniFilePath", 1, 0, 33);
    expectStatuses({33, 33, 33});
    morlan_clear_faults();
    expectStatuses({0});
    EXPECT_EQ(morlan_call_count("GetIniFilePath"), 9U);
    sm_destroy(string);
    morlan_reset();
}

} // namespace
