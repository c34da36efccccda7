// Any bytes as records of the vendor library: into model objects and alerts, and from there into the data
// engine.
#include "common/SdoObject.h"
#include "events/CMarvelAlert.h"
#include "events/CMarvelEvtObserver.h"
#include "fuzz/demand.h"
#include "model/CMarvelPhysicalDevice.h"
#include "model/CMarvelVirtualDevice.h"
#include "model/CMarvellController.h"
#include "mvlayer/Binders.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace
{

using Input = FuzzedDataProvider;

// A record with the bytes that come next, zero where the input ends. It may be missing.
template <class Record>
class Taken
{
  public:
    explicit Taken(Input& input) : m_present(input.ConsumeBool())
    {
        input.ConsumeData(&m_record, sizeof m_record);
    }
    Record* pointer() { return m_present ? &m_record : nullptr; }

  private:
    bool m_present;
    Record m_record{};
};

void checkTexts(const void* object)
{
    for (const SdoProperty& property : propertiesOf(object)) {
        demand(property.type != SDO_TYPE_ASTRING || std::memchr(property.value, 0, property.size) != nullptr,
               "texts are terminated");
        if (property.type == SDO_TYPE_SDOCONFIG)
            checkTexts(property.value);
    }
}

// The object of a binder goes into the data engine whole.
template <class Object, class Binder>
void discover(Binder binder)
{
    Object object;
    object = static_cast<void*>(&binder);
    stg::SDOProxy proxy;
    demand(proxy.createSDOObject(object) == 0 && proxy.insertIntoDataEngine() == 0,
           "an object goes into the data engine");
    ral_snapshot* const snapshot = ral_snapshot_create();
    demand(ral_snapshot_count(snapshot) == 1 && ral_snapshot_incomplete(snapshot, 0) == 0,
           "every object has an identity");
    checkTexts(ral_snapshot_object(snapshot, 0));
    ral_snapshot_destroy(snapshot);
}

struct PassiveObserver : CMarvelEvtObserver {
    short generateActionCommand(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int) override
    {
        return 0;
    }
};

// Past the mapping file, whose content decides which alerts pass.
void notify(Input& input)
{
    Taken<_Event> event(input);
    Taken<stg::SInfoHelper_t> helper(input);
    stg::QLVEventBinder_t binder(event.pointer(), helper.pointer());
    CMarvelAlert alert;
    alert = static_cast<void*>(&binder);

    unsigned int received = 0;
    const auto receive = [](void* counter, const void* object) {
        checkTexts(object);
        ++*static_cast<unsigned int*>(counter);
    };
    ral_set_notification_sink(receive, &received);
    PassiveObserver observer;
    observer.IEvtObserver::processAlert(&alert);
    demand(received == 1, "an alert becomes one notification");
}

void discoverDisk(Input& input)
{
    Taken<_HD_Info> info(input);
    Taken<_HD_CONFIG> config(input);
    Taken<stg::SInfoHelper_t> helper(input);
    Taken<_HD_FreeSpaceInfo> freeSpace(input);
    discover<CMarvelPhysicalDevice>(
        stg::QLVPDBinder_t(info.pointer(), config.pointer(), helper.pointer(), freeSpace.pointer()));
}

void discoverDrive(Input& input)
{
    Taken<_LD_Info> info(input);
    Taken<_LD_Config> config(input);
    Taken<stg::SInfoHelper_t> helper(input);
    discover<CMarvelVirtualDevice>(stg::QLVVDBinder_t(info.pointer(), config.pointer(), helper.pointer()));
}

void discoverController(Input& input)
{
    Taken<_Adapter_Info> info(input);
    Taken<_Adapter_Config_V2> config(input);
    Taken<stg::SInfoHelper_t> helper(input);
    discover<CMarvellController>(stg::QLVCntrlBinder_t(info.pointer(), config.pointer(), helper.pointer()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static constexpr void (*ROADS[])(Input&) = {discoverController, discoverDisk, discoverDrive, notify};
    morlan_set_debug_sink([](void*, const char*) {}, nullptr);
    Input input(data, size);
    input.PickValueInArray(ROADS)(input);
    ral_reset();
    demand(morlan_live_sdo_objects() == 0, "no SDO object is left");
    return 0;
}
