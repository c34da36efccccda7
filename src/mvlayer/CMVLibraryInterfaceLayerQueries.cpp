// The queries of CMVLibraryInterfaceLayer: vendor answers into model objects and alerts.
#include "mvlayer/CMVLibraryInterfaceLayer.h"

#include "events/CMarvelAlert.h"
#include "model/CPhysicalDevice.h"
#include "model/CVirtualDevice.h"
#include "model/IController.h"
#include "mvlayer/Binders.h"
#include "mvlayer/VendorBuffer.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"
#include "vendor/CMarvellVendorLibrary.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace
{

// The two lists of an adapter, whose entries of one index describe one device.
template <class Info, class Config>
struct ParallelLists {
    explicit ParallelLists(std::uint32_t answerSize) : info(answerSize), config(answerSize) {}

    bool allocated() const { return info.request() != nullptr && config.request() != nullptr; }
    // An entry of an answer: null when the call failed, or when the entry does not lie within the buffer.
    Info* infoEntry(std::size_t index) const
    {
        return infoStatus == stg::STATUS_SUCCESS ? info.entry(index) : nullptr;
    }
    Config* configEntry(std::size_t index) const
    {
        return configStatus == stg::STATUS_SUCCESS ? config.entry(index) : nullptr;
    }
    // Whether an entry of this index lies within both buffers.
    bool holds(std::size_t index) const
    {
        return info.entry(index) != nullptr && config.entry(index) != nullptr;
    }
    bool equallyLong() const { return allocated() && info.returned() == config.returned(); }

    stg::ListBuffer<Info> info;
    stg::ListBuffer<Config> config;
    short infoStatus = stg::STATUS_SUCCESS;
    short configStatus = stg::STATUS_SUCCESS;
};

using DiskLists = ParallelLists<_HD_Info, _HD_CONFIG>;
using DriveLists = ParallelLists<_LD_Info, _LD_Config>;

// Fetches both lists of disks; `prefix` begins the lines on success.
void fetchDiskLists(CMVLibraryInterfaceLayer& layer, unsigned int cntrlId, const char* prefix,
                    DiskLists& lists)
{
    if (lists.info.request() != nullptr) {
        lists.infoStatus = layer.getPhysicalDisksInfo(cntrlId, lists.info.entryCount(), lists.info.request());
        if (lists.infoStatus == stg::STATUS_SUCCESS)
            stg::lout << prefix << "getPhysicalDisksInfo Successful " << '\n';
    }
    if (lists.config.request() != nullptr) {
        lists.configStatus =
            layer.getPhysicalDiskConfig(cntrlId, lists.config.entryCount(), lists.config.request());
        if (lists.configStatus == stg::STATUS_SUCCESS)
            stg::lout << prefix << "getPhysicalDiskConfig Successful " << '\n';
    }
}

// Fetches both lists of logical drives. The result is the status of the last call made.
short fetchDriveLists(CMVLibraryInterfaceLayer& layer, unsigned int cntrlId, DriveLists& lists)
{
    short result = stg::STATUS_SUCCESS;
    if (lists.info.request() != nullptr)
        result = lists.infoStatus =
            layer.getVirtualDisksInfo(cntrlId, lists.info.entryCount(), lists.info.request());
    if (lists.config.request() != nullptr)
        result = lists.configStatus =
            layer.getVirtualDiskConfig(cntrlId, lists.config.entryCount(), lists.config.request());
    return result;
}

// Makes a record zero, if there is one.
template <class Record>
void clear(Record* record)
{
    if (record != nullptr)
        *record = {};
}

} // namespace

// The two one-disk requests, allocated once and used for one disk or a whole list of them.
class CMVLibraryInterfaceLayer::DiskRequests
{
  public:
    // A failed allocation is logged and makes the query's result -1, but does not stop it: the request then
    // counts as answered with nothing.
    DiskRequests(const char* statusPrefix, const char* freeSpacePrefix, short& result)
        : m_status(stg::allocateVendorRecord<_HD_RAID_Status_Request>()),
          m_freeSpace(stg::allocateVendorRecord<_HD_FreeSpaceInfo_Request>())
    {
        if (!m_status) {
            stg::lout << statusPrefix << "Failed to allocate memory pHdRaidStatusReq" << '\n';
            result = -1;
        }
        if (!m_freeSpace) {
            stg::lout << freeSpacePrefix << "Failed to allocate memory pHdFreeSpaceReq" << '\n';
            result = -1;
        }
    }

    // Asks for both answers of one disk. That of a failed call is zero, whatever the call wrote.
    void ask(CMVLibraryInterfaceLayer& layer, unsigned int cntrlId, unsigned short hdId, const char* prefix)
    {
        clear(m_status.get());
        if (layer.getPhysicalDiskStatus(cntrlId, hdId, m_status.get()) == stg::STATUS_SUCCESS)
            stg::lout << prefix << "pHdRaidStatusReq Successful " << '\n';
        else
            clear(m_status.get());
        clear(m_freeSpace.get());
        if (layer.getPhysicalDiskFreeSpace(cntrlId, hdId, m_freeSpace.get()) == stg::STATUS_SUCCESS)
            stg::lout << prefix << "pHdFreeSpaceReq Successful " << '\n';
        else
            clear(m_freeSpace.get());
    }

    std::uint32_t raidStatus() const { return m_status ? m_status->RaidStatusFlags : 0U; }
    _HD_FreeSpaceInfo* freeSpace() const { return m_freeSpace ? &m_freeSpace->Answer : nullptr; }

  private:
    stg::VendorRecord<_HD_RAID_Status_Request> m_status;
    stg::VendorRecord<_HD_FreeSpaceInfo_Request> m_freeSpace;
};

short CMVLibraryInterfaceLayer::getControllerInfo(IController& controller)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getControllerInfo()");

    char romVersion[20] = {};
    const unsigned int cntrlId = controller.getCntrlID();
    const auto info = stg::allocateVendorRecord<_Adapter_Info>();
    if (info && getAdapterInfo(cntrlId, 0, info.get()) == stg::STATUS_SUCCESS)
        stg::lout << "ZARNEK:CLibraryInterfaceLayer: getAdapterInfo() Successful " << '\n';
    else
        clear(info.get());
    const auto config = stg::allocateVendorRecord<_Adapter_Config_V2>();
    if (config && getAdapterConfig(cntrlId, 0, config.get()) == stg::STATUS_SUCCESS)
        stg::lout << "ZARNEK:CLibraryInterfaceLayer: getAdapterConfig() Successful " << '\n';
    else
        clear(config.get());
    const short result = getAdapterROMVersion(cntrlId, &romVersion);
    if (result == stg::STATUS_SUCCESS)
        stg::lout << "ZARNEK:CMVLibraryInterfaceLayer: getAdapterROMVersion() Successful: ROM Version = "
                  << romVersion << '\n';

    if (info && config) {
        // Whatever the calls said: the record of a failed one is zero, and that is what the object reads.
        stg::SInfoHelper_t helper;
        helper.cntrlId = controller.getCntrlID();
        helper.globalCntrlNum = controller.getGlobalControllerNumber();
        std::memcpy(helper.romVersion, romVersion, sizeof helper.romVersion);
        stg::QLVCntrlBinder_t binder;
        binder.adapterInfo = info.get();
        binder.adapterConfig = config.get();
        binder.infoHelper = &helper;
        controller = static_cast<void*>(&binder);
    }
    return result;
}

unsigned int CMVLibraryInterfaceLayer::getPDCount(unsigned int cntrlId)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getPDCount()");
    const stg::ListBuffer<_HD_Info> list(getMarvellBufSize(cntrlId));
    stg::lout << "ZARNEK:CLibraryInterfaceLayer: getPDCount()  maxNum:" << list.entryCount() << '\n';
    if (list.request() == nullptr ||
        getPhysicalDisksInfo(cntrlId, list.entryCount(), list.request()) != stg::STATUS_SUCCESS)
        return 0;
    stg::lout << "ZARNEK:CLibraryInterfaceLayer: getPDCount()  getPhysicalDisksInfo Successful " << '\n';
    return list.returned();
}

unsigned int CMVLibraryInterfaceLayer::getVDCount(unsigned int cntrlId)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getVDCount()");
    const stg::ListBuffer<_LD_Info> list(getMarvellBufSize(cntrlId));
    if (list.request() == nullptr ||
        getVirtualDisksInfo(cntrlId, list.entryCount(), list.request()) != stg::STATUS_SUCCESS)
        return 0;
    return list.returned();
}

short CMVLibraryInterfaceLayer::getPDInfo(CPhysicalDevice& disk)
{
    static constexpr char PREFIX[] = "ZARNEK:CLibraryInterfaceLayer: getPDInfo()  ";
    static constexpr char OTHER_PREFIX[] = "ZARNEK:CLibraryInterfaceLayer: getAllPDInfo()  ";
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getPDInfo()");

    const unsigned int cntrlId = disk.getCntrID();
    const unsigned int slot = disk.getSlotNum();
    getControllerCount();
    DiskLists lists(getMarvellBufSize(cntrlId));
    fetchDiskLists(*this, cntrlId, PREFIX, lists);

    short result = stg::STATUS_SUCCESS;
    const bool usable = lists.equallyLong() && lists.infoStatus == stg::STATUS_SUCCESS &&
                        lists.configStatus == stg::STATUS_SUCCESS;
    const std::size_t count = usable ? lists.config.returned() : 0U;
    for (std::size_t index = 0; index < count; ++index) {
        _HD_CONFIG* const config = lists.config.entry(index);
        if (config == nullptr)
            break;
        if (config->SlotNumber != slot)
            continue;
        _HD_Info* const info = lists.info.entry(index);
        if (info == nullptr)
            break;
        DiskRequests requests(PREFIX, OTHER_PREFIX, result);
        requests.ask(*this, cntrlId, info->HD_Id, PREFIX);
        stg::SInfoHelper_t helper;
        helper.globalCntrlNum = disk.getGlobalCntrlNum();
        helper.cntrlId = cntrlId;
        helper.hdRaidStatus = requests.raidStatus();
        stg::QLVPDBinder_t binder;
        binder.hdInfo = info;
        binder.hdConfig = config;
        binder.hdFreeSpace = requests.freeSpace();
        binder.infoHelper = &helper;
        disk = static_cast<void*>(&binder);
        break;
    }
    return result;
}

short CMVLibraryInterfaceLayer::getAllPDInfo(unsigned int globalCntrlNum, unsigned int cntrlId,
                                             std::vector<CPhysicalDevice*>& disks)
{
    static constexpr char PREFIX[] = "ZARNEK:CLibraryInterfaceLayer: getAllPDInfo()  ";
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getAllPDInfo()");

    getControllerCount();
    const std::uint32_t answerSize = getMarvellBufSize(cntrlId);
    stg::lout << "ZARNEK:CLibraryInterfaceLayer: getAllPDInfo(): bufSize = " << answerSize << '\n';
    DiskLists lists(answerSize);
    fetchDiskLists(*this, cntrlId, PREFIX, lists);
    if (!lists.equallyLong() || lists.info.returned() != disks.size() ||
        lists.infoStatus != stg::STATUS_SUCCESS)
        return stg::STATUS_SUCCESS;

    short result = stg::STATUS_SUCCESS;
    stg::SInfoHelper_t helper;
    helper.globalCntrlNum = globalCntrlNum;
    helper.cntrlId = cntrlId;
    DiskRequests requests(PREFIX, PREFIX, result);
    std::size_t index = 0; // a null element uses up no entry
    for (CPhysicalDevice* disk : disks) {
        if (!lists.holds(index))
            break; // the library claims more entries than its answer holds
        _HD_Info* const info = lists.infoEntry(index);
        requests.ask(*this, cntrlId, info->HD_Id, PREFIX);
        if (disk == nullptr)
            continue;
        helper.hdRaidStatus = requests.raidStatus();
        stg::QLVPDBinder_t binder;
        binder.hdInfo = info;
        binder.hdConfig = lists.configEntry(index);
        binder.hdFreeSpace = requests.freeSpace();
        binder.infoHelper = &helper;
        *disk = static_cast<void*>(&binder);
        ++index;
    }
    return result;
}

short CMVLibraryInterfaceLayer::getVDInfo(CVirtualDevice& drive)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getVDInfo()");

    const unsigned int cntrlId = drive.getControllerID();
    const unsigned int ldId = drive.getDeviceID();
    getControllerCount();
    DriveLists lists(getMarvellBufSize(cntrlId));
    stg::lout << "ZARNEK:CLibraryInterfaceLayer: getVDInfo() maxNum :" << lists.info.entryCount() << '\n';
    const short result = fetchDriveLists(*this, cntrlId, lists);

    const bool usable = lists.equallyLong() && lists.infoStatus == stg::STATUS_SUCCESS;
    const std::size_t count = usable ? lists.info.returned() : 0U;
    for (std::size_t index = 0; index < count; ++index) {
        _LD_Info* const info = lists.info.entry(index);
        if (info == nullptr)
            break;
        if (info->LD_Id != ldId)
            continue;
        stg::SInfoHelper_t helper;
        helper.globalCntrlNum = drive.getGlobalControllerNo();
        helper.cntrlId = cntrlId;
        stg::QLVVDBinder_t binder;
        binder.ldInfo = info;
        binder.ldConfig = lists.configEntry(index);
        binder.infoHelper = &helper;
        drive = static_cast<void*>(&binder);
        break;
    }
    return result;
}

short CMVLibraryInterfaceLayer::getAllVDInfo(unsigned int globalCntrlNum, unsigned int cntrlId,
                                             std::vector<CVirtualDevice*>& drives)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getAllVDInfo()");

    DriveLists lists(getMarvellBufSize(cntrlId));
    stg::lout << "ZARNEK:CLibraryInterfaceLayer: getAllVDInfo() maxNum : " << lists.info.entryCount() << '\n';
    const short result = fetchDriveLists(*this, cntrlId, lists);
    if (!lists.equallyLong() || lists.info.returned() > drives.size())
        return result;

    stg::SInfoHelper_t helper;
    helper.globalCntrlNum = globalCntrlNum;
    helper.cntrlId = cntrlId;
    std::size_t index = 0; // drives beyond the answer read the entries that the library left zero
    for (CVirtualDevice* drive : drives) {
        if (drive == nullptr)
            continue;
        if (!lists.holds(index))
            break;
        stg::QLVVDBinder_t binder;
        binder.ldInfo = lists.infoEntry(index); // nothing, after a failed call
        binder.ldConfig = lists.configEntry(index);
        binder.infoHelper = &helper;
        *drive = static_cast<void*>(&binder);
        ++index;
    }
    return result;
}

short CMVLibraryInterfaceLayer::getEventInfo(stg::SCntrlID_t id, std::vector<CAlert*>& alerts)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getEventInfo()",
                              "ZARNEK:CLibraryInterfaceLayer:getEvents()");

    unsigned int count = 0;
    const auto events = stg::allocateVendorRecord<_Event>(MV_MAX_EVENTS);
    if (!events)
        return stg::STATUS_SUCCESS;
    const auto getEvent =
        m_pMarvellLib != nullptr ? m_pMarvellLib->GetMVEVTGetEventAPI() : MV_EVT_GetEvent_t{};
    if (getEvent == nullptr)
        return stg::STATUS_SUCCESS;
    const auto adapter = static_cast<unsigned char>(id.m_CntrlID);
    const short status = statusOf(getEvent(adapter, MV_MAX_EVENTS, &count, events.get()));
    if (status != stg::STATUS_SUCCESS)
        return status;
    stg::lout << " ZARNEK:CLibraryInterfaceLayer:getEventInfo"
              << "return Event Count:" << count << '\n';

    count = std::min(count, MV_MAX_EVENTS);
    stg::SInfoHelper_t helper;
    helper.globalCntrlNum = id.m_GlobalCntrlNum;
    helper.cntrlId = id.m_CntrlID;
    helper.eventCount = count;
    stg::QLVEventBinder_t binder;
    binder.infoHelper = &helper;
    for (unsigned int index = 0; index < count; ++index) {
        std::unique_ptr<CMarvelAlert> alert(new (std::nothrow) CMarvelAlert);
        if (!alert)
            continue; // the event is dropped
        binder.event = events.get() + index;
        *alert = static_cast<void*>(&binder);
        alerts.push_back(nullptr);
        alerts.back() = alert.release();
    }
    return stg::STATUS_SUCCESS;
}

short CMVLibraryInterfaceLayer::releaseEventInfoVector(std::vector<CAlert*>& alerts)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:freeEventInfoVector()");
    for (CAlert*& alert : alerts) {
        delete alert;
        alert = nullptr;
    }
    alerts.clear();
    return stg::STATUS_SUCCESS;
}
