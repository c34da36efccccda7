// Calls without a status of their own fail by plan like all others.
#include "common/LineLog.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gmock/gmock.h>

TEST(Faults, CallsWithoutAStatusFailAsWell)
{
    for (const char* call : {"DebugPrint", "sm_strlen", "sm_destroy"})
        EXPECT_EQ(morlan_fail_call(call, 1, 1, 1), 0) << call;
    LineLog log;
    morlan_set_debug_sink(LineLog::sink, &log);
    DebugPrint("lost");
    DebugPrint("kept");
    EXPECT_THAT(log.lines(), testing::ElementsAre("kept"));

    void* const string = sm_create();
    morlan_set_install_path("path");
    EXPECT_EQ(GetIniFilePath(string), 0);
    EXPECT_EQ(sm_strlen(string), 0U);
    sm_destroy(string);
    EXPECT_EQ(sm_strlen(string), 4U) << "it is still there";
    sm_destroy(string);
    morlan_reset();
}
