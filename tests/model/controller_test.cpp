#include "common/PluginTest.h"
#include "model/CMarvellController.h"
#include "model/Filled.h"

#include <sdo.h>

#include <cstring>

using testing::ElementsAre;

namespace
{

using ControllerTest = PluginTest;

struct Controller : Filled<CMarvellController, stg::QLVCntrlBinder_t> {
    _Adapter_Info info{};
    _Adapter_Config_V2 config{};
};

TEST_F(ControllerTest, TakesTheRecordsThatAreThere)
{
    CMarvellController untold;
    untold = static_cast<void*>(nullptr);
    EXPECT_THAT(*untold.getAttribValueMap(), ElementsAre(testing::Key("m_CntrlNexus")));

    Controller controller;
    controller.fill();
    SdoValues values{
        {SSPROP_ATTRIBUTEMASK_U32, 0},          {SSPROP_MASTERMETHODMASK_U32, 0},
        {SSPROP_CURRENTMETHODMASK_U32, 0},      {SSPROP_OBJTYPE_U32, SDO_OBJTYPE_CONTROLLER},
        {SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER}, {SSPROP_NAME_ASTRING, "TALM-Q7"},
        {SSPROP_STATE_U32, SDO_STATE_READY},    {SSPROP_STATUS_U32, SDO_STATUS_OK},
        {SSPROP_BUSPROTOCOL_U32, SDO_BUS_SATA}, {SSPROP_NEXUS_U32, SSPROP_GLOBALCONTROLLERNUM_U32}};
    EXPECT_EQ(controller.sent(), values);

    std::memset(&controller.info, 0xEE, sizeof controller.info);
    controller.info.SlotNumber = 0xF2345678;
    controller.info.AdapterModel = 0x9280;
    controller.info.PortCount = 0xFE;
    controller.info.PDCount = 0xFD;
    controller.info.VDCount = 0xFC;
    controller.helper = {7, 3, 0, 0, "1.2"};
    controller.binder = {&controller.info, nullptr, &controller.helper};
    controller.fill();
    values.insert({{SSPROP_GLOBALCONTROLLERNUM_U32, 7},
                   {SSPROP_CONTROLLERID_U32, 3},
                   {SSPROP_FWVERSION_ASTRING, "1.2"},
                   {SSPROP_SLOTID_U32, 0xF2345678},
                   {SSPROP_MODELNUM_U32, 0x9280},
                   {SSPROP_PORTCOUNT_U32, 0xFE},
                   {SSPROP_PDCOUNT_U32, 0xFD},
                   {SSPROP_VDCOUNT_U32, 0xFC}});
    EXPECT_EQ(controller.sent(), values);
}

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
