// The calls of morlan.h on SDO objects.
#include "morlan/exported_calls.h"

#include "morlan/Morlan.h"
#include "morlan/SdoObject.h"

#include <sdo.h>

#include <cstring>
#include <new>

using morlan::Morlan;
using morlan::SdoObject;

namespace
{

devkit::FaultPlan& faults()
{
    return Morlan::instance().faults;
}

struct Bytes {
    const void* data;
    std::size_t size;
};

// A property's value as callers see it: for a nested object, the handle that the property holds.
Bytes bytesOf(const SdoObject::Property& property)
{
    if (property.nested != nullptr)
        return {&property.nested, sizeof property.nested};
    return {property.bytes.data(), property.bytes.size()};
}

} // namespace

void* SMSDOConfigAlloc()
{
    if (faults().enter(__func__))
        return nullptr;
    return new (std::nothrow) SdoObject;
}

int SMSDOConfigFree(void* object)
{
    if (const auto fault = faults().enter(__func__))
        return *fault;
    return SdoObject::free(object) ? 0 : Morlan::FAILED;
}

void* SMSDOConfigClone(const void* object)
{
    if (faults().enter(__func__))
        return nullptr;
    return SdoObject::cloneOf(object);
}

int SMSDOConfigAddData(void* object, unsigned short id, unsigned char type, const void* value,
                       unsigned int size, int)
{
    if (const auto fault = faults().enter(__func__))
        return *fault;
    SdoObject* const target = SdoObject::fromHandle(object);
    if (target == nullptr)
        return Morlan::FAILED;
    try {
        if (type == SDO_TYPE_SDOCONFIG) {
            SdoObject* const nested = SdoObject::fromHandle(const_cast<void*>(value));
            return nested != nullptr && target->setNested(id, type, nested) ? 0 : Morlan::FAILED;
        }
        if (value == nullptr || size == 0)
            return Morlan::FAILED;
        target->set(id, type, value, size);
        return 0;
    } catch (const std::bad_alloc&) {
        return Morlan::FAILED;
    }
}

int SMSDOConfigGetDataByID(const void* object, unsigned short id, int index, void* value, unsigned int* size)
{
    if (const auto fault = faults().enter(__func__))
        return *fault;
    const SdoObject* const source = SdoObject::fromHandle(object);
    const SdoObject::Property* const property = source == nullptr ? nullptr : source->find(id);
    // There is one value per id, the one at index 0.
    if (property == nullptr || index != 0 || value == nullptr || size == nullptr)
        return Morlan::FAILED;
    const Bytes bytes = bytesOf(*property);
    if (bytes.size > *size)
        return Morlan::FAILED;
    std::memcpy(value, bytes.data, bytes.size);
    *size = static_cast<unsigned int>(bytes.size);
    return 0;
}

int GetProperty2(const void* object, unsigned short id, void** value, unsigned char* type, unsigned int* size)
{
    if (const auto fault = faults().enter(__func__))
        return *fault;
    const SdoObject* const source = SdoObject::fromHandle(object);
    const SdoObject::Property* const property = source == nullptr ? nullptr : source->find(id);
    if (property == nullptr || value == nullptr || type == nullptr || size == nullptr)
        return Morlan::FAILED;
    const Bytes bytes = bytesOf(*property);
    *value = const_cast<void*>(bytes.data);
    *type = property->type;
    *size = static_cast<unsigned int>(bytes.size);
    return 0;
}
