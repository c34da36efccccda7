#include "morlan/morlan_inspect.h"

#include "morlan/Morlan.h"
#include "morlan/SdoObject.h"

using morlan::Morlan;
using morlan::SdoObject;

namespace
{

Morlan& library()
{
    return Morlan::instance();
}

} // namespace

void morlan_set_install_path(const char* directory)
{
    devkit::guarded([=] { library().installFolder.set(directory); });
}

void morlan_set_private_ini(const char* file)
{
    devkit::guarded([=] { library().privateIni.set(file); });
}

void morlan_set_debug_sink(devkit_text_sink sink, void* context)
{
    library().debugSink.set(sink, context);
}

void morlan_set_call_sink(devkit_text_sink sink, void* context)
{
    library().callSink.set(sink, context);
}

int morlan_fail_call(const char* call, unsigned int nth, unsigned int count, int status)
{
    return devkit::guarded(
        Morlan::FAILED, [=] { return library().faults.plan(call, nth, count, status) ? 0 : Morlan::FAILED; });
}

void morlan_clear_faults()
{
    library().faults.clearFaults();
}

unsigned int morlan_call_count(const char* call)
{
    return library().faults.calls(call);
}

unsigned int morlan_live_sdo_objects()
{
    return SdoObject::live();
}

unsigned int morlan_live_strings()
{
    return library().strings.live();
}

unsigned int morlan_live_mutexes()
{
    return library().mutexes.live();
}

void morlan_hold_threads(int hold)
{
    library().threads.hold(hold != 0);
}

unsigned int morlan_running_threads()
{
    return library().threads.running();
}

int morlan_wait_threads(unsigned int milliseconds)
{
    return library().threads.waitUntilNoneRuns(std::chrono::milliseconds(milliseconds)) ? 0 : Morlan::FAILED;
}

unsigned int morlan_sdo_property_count(const void* object)
{
    const SdoObject* const source = SdoObject::fromHandle(object);
    return source == nullptr ? 0 : static_cast<unsigned int>(source->properties().size());
}

int morlan_sdo_property_at(const void* object, unsigned int index, unsigned short* id, unsigned char* type,
                           const void** value, unsigned int* size)
{
    const SdoObject* const source = SdoObject::fromHandle(object);
    if (source == nullptr || index >= source->properties().size())
        return Morlan::FAILED;
    const SdoObject::Property& property = source->properties()[index];
    const bool nested = property.nested != nullptr;
    *id = property.id;
    *type = property.type;
    *value = nested ? static_cast<const void*>(property.nested) : property.bytes.data();
    *size = static_cast<unsigned int>(nested ? sizeof property.nested : property.bytes.size());
    return 0;
}

const void* morlan_sdo_content(const void* object)
{
    const SdoObject* const source = SdoObject::fromHandle(object);
    return source == nullptr ? nullptr : source->content();
}

void* morlan_sdo_clone(const void* object)
{
    return devkit::guarded<void*>(nullptr, [object] { return SdoObject::cloneOf(object); });
}

void morlan_sdo_free(void* object)
{
    SdoObject::free(object);
}

void morlan_reset()
{
    library().reset();
}
