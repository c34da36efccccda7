#include "common/PluginTest.h"
#include "model/CMarvellController.h"
#include "model/Filled.h"

namespace
{

using ControllerTest = PluginTest;

struct Controller : Filled<CMarvellController, stg::QLVCntrlBinder_t> {
    _Adapter_Config_V2 config{};
};

TEST_F(ControllerTest, ReadsTheRebuildRateAndTheAlarm)
{
    struct Case {
        std::uint8_t rate, alarm;
        unsigned int percent;
    };
    Controller controller;
    controller.binder.adapterConfig = &controller.config;
    for (const Case& c : {Case{0, 0, 50}, Case{1, 1, 0}, Case{3, 128, 1}, Case{255, 0, 100}}) {
        controller.config.RebuildRate = c.rate;
        controller.config.AlarmFlag = c.alarm;
        controller.fill();
        EXPECT_EQ(controller.getRebuildRate(), c.percent) << int{c.rate};
        EXPECT_EQ(controller.getAlarmState(), c.alarm != 0);
    }
}

} // namespace
