#include "model/CMarvellController.h"

#include "mvlayer/Binders.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/TextTools.h"

#include <sdo.h>

namespace
{

// Every controller of the family is reported with this name, as ready and well, whatever the adapter says.
constexpr char PRODUCT_NAME[] = "TALM-Q7";

constexpr unsigned int DEFAULT_REBUILD_RATE = 50;

// From the record's scale of 0 to 255 to percent; 0 stands for the default.
unsigned int rebuildPercent(unsigned int rate)
{
    return rate == 0 ? DEFAULT_REBUILD_RATE : rate * 100 / 255;
}

} // namespace

CMarvellController::CMarvellController()
{
    loadCntrlSpecificAttrib();
}

CMarvellController::CMarvellController(const CMarvellController& other) : IController()
{
    copyAttributes(other);
    attribNameAndTypeMapInit();
    loadCntrlSpecificAttrib();
}

CMarvellController::~CMarvellController() = default;

CMarvellController& CMarvellController::operator=(void* binder)
{
    const stg::LogScope scope("ZARNEK:CMarvellController::operator =()");

    if (binder != nullptr) {
        const auto& records = *static_cast<const stg::QLVCntrlBinder_t*>(binder);
        setMasterMethodMask(0);
        setCurrentMethodMask(0);
        setAttributeMask(0);
        setObjType(SDO_OBJTYPE_CONTROLLER);
        setVILNumber(SDO_VIL_NUMBER);
        setProductName(PRODUCT_NAME);
        setState(SDO_STATE_READY);
        setStatus(SDO_STATUS_OK);
        setBusProtocolNumber(SDO_BUS_SATA);
        if (records.infoHelper != nullptr) {
            const stg::SInfoHelper_t& helper = *records.infoHelper;
            setControllerID(helper.cntrlId);
            setGlobalControllerNumber(helper.globalCntrlNum);
            setFWVersion(stg::textFromField(helper.romVersion, sizeof helper.romVersion));
        }
        stg::lout << "ZARNEK: CMarvellController:operator=() - GCN: " << getGlobalControllerNumber()
                  << " CNTRLID: " << getCntrlID() << '\n';
        if (records.adapterInfo != nullptr) {
            const _Adapter_Info& info = *records.adapterInfo;
            setPortCount(info.PortCount);
            setSlotID(info.SlotNumber);
            setVDCount(info.VDCount);
            setPDCount(info.PDCount);
            setModelNum(info.AdapterModel);
        }
        if (records.adapterConfig != nullptr) {
            setRebuildRate(rebuildPercent(records.adapterConfig->RebuildRate));
            setAlarmState(records.adapterConfig->AlarmFlag != 0);
        }
        stg::lout << "ZARNEK: CMarvellController::operator = () - RebuildRate:" << getRebuildRate() << '\n';
    }

    stg::lout << "ZARNEK: CMarvellController::operator = () - VIL No: " << getVILNumber() << '\n';
    setControllerNexus({SSPROP_GLOBALCONTROLLERNUM_U32});
    return *this;
}

CMarvellController& CMarvellController::operator=(stg::AttribValMap& values)
{
    assignAttributes(values);
    return *this;
}

CMarvellController& CMarvellController::operator=(const CMarvellController& other)
{
    copyAttributes(other);
    return *this;
}

void CMarvellController::loadCntrlSpecificAttrib()
{
    const stg::LogScope scope("ZARNEK:CMarvellController::loadCntrlSpecificAttrib()");
    appendReadableNames(m_CntrlSpecificAttrib);
}
