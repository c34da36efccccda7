// The calls of morlan.h on SDO objects.
#include "morlan/exported_calls.h"

#include "morlan/Morlan.h"
#include "morlan/SdoObject.h"

#include <sdo.h>

#include <cstring>
#include <optional>

using morlan::Morlan;
using morlan::SdoObject;

namespace
{

// A property's value as callers see it: for a nested object, the handle that the property holds.
struct Value {
    unsigned char type;
    const void* data;
    unsigned int size;
};

// Nothing for an object that is none, or lacks the id.
std::optional<Value> valueOf(const void* object, unsigned short id)
{
    const SdoObject* const source = SdoObject::fromHandle(object);
    const SdoObject::Property* const property = source == nullptr ? nullptr : source->find(id);
    if (property == nullptr)
        return std::nullopt;
    if (property->nested != nullptr)
        return Value{property->type, &property->nested, sizeof property->nested};
    return Value{property->type, property->bytes.data(), static_cast<unsigned int>(property->bytes.size())};
}

} // namespace

void* SMSDOConfigAlloc()
{
    return Morlan::instance().obtain(__func__, [] { return new SdoObject; });
}

int SMSDOConfigFree(void* object)
{
    return Morlan::instance().attempt(__func__, [&] { return SdoObject::free(object); });
}

void* SMSDOConfigClone(const void* object)
{
    return Morlan::instance().obtain(__func__, [object] { return SdoObject::cloneOf(object); });
}

int SMSDOConfigAddData(void* object, unsigned short id, unsigned char type, const void* value,
                       unsigned int size, int)
{
    return Morlan::instance().attempt(__func__, [&] {
        SdoObject* const target = SdoObject::fromHandle(object);
        if (target == nullptr || value == nullptr)
            return false;
        if (type == SDO_TYPE_SDOCONFIG) {
            SdoObject* const nested = SdoObject::fromHandle(const_cast<void*>(value));
            return nested != nullptr && target->setNested(id, type, nested);
        }
        if (size == 0)
            return false;
        target->set(id, type, value, size);
        return true;
    });
}

int SMSDOConfigGetDataByID(const void* object, unsigned short id, int index, void* value, unsigned int* size)
{
    return Morlan::instance().attempt(__func__, [&] {
        const std::optional<Value> found = valueOf(object, id);
        // There is one value per id, the one at index 0.
        if (!found || index != 0 || value == nullptr || size == nullptr || found->size > *size)
            return false;
        std::memcpy(value, found->data, found->size);
        *size = found->size;
        return true;
    });
}

int GetProperty2(const void* object, unsigned short id, void** value, unsigned char* type, unsigned int* size)
{
    return Morlan::instance().attempt(__func__, [&] {
        const std::optional<Value> found = valueOf(object, id);
        if (!found || value == nullptr || type == nullptr || size == nullptr)
            return false;
        *value = const_cast<void*>(found->data);
        *type = found->type;
        *size = found->size;
        return true;
    });
}
