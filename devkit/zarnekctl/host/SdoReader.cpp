#include "zarnekctl/host/SdoReader.h"

#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"
#include <sdo.h>

#include <algorithm>
#include <cstring>

namespace zarnekctl
{

namespace
{

template <typename Number>
bool readNumber(const void* data, unsigned int size, Number& number)
{
    if (size != sizeof number)
        return false;
    std::memcpy(&number, data, sizeof number);
    return true;
}

template <typename Number, typename Wide>
Value numberValue(const void* data, unsigned int size)
{
    Number number = 0;
    if (!readNumber(data, size, number))
        return Bytes{std::string(static_cast<const char*>(data), size)};
    return static_cast<Wide>(number);
}

Value listValue(const void* data, unsigned int size)
{
    std::vector<std::uint32_t> list(size / sizeof(std::uint32_t));
    if (!list.empty())
        std::memcpy(list.data(), data, list.size() * sizeof(std::uint32_t));
    return list;
}

Value readValue(unsigned char type, const void* data, unsigned int size)
{
    switch (type) {
    case SDO_TYPE_SDOCONFIG:
        return Nested{std::make_shared<const Object>(readObject(data))};
    case SDO_TYPE_BOOLN:
    case SDO_TYPE_U8:
        return numberValue<std::uint8_t, std::uint64_t>(data, size);
    case SDO_TYPE_U16:
        return numberValue<std::uint16_t, std::uint64_t>(data, size);
    case SDO_TYPE_U32:
    case SDO_TYPE_BINARY_DATA:
        return numberValue<std::uint32_t, std::uint64_t>(data, size);
    case SDO_TYPE_U64:
        return numberValue<std::uint64_t, std::uint64_t>(data, size);
    case SDO_TYPE_S8:
        return numberValue<std::int8_t, std::int64_t>(data, size);
    case SDO_TYPE_S16:
        return numberValue<std::int16_t, std::int64_t>(data, size);
    case SDO_TYPE_S32:
        return numberValue<std::int32_t, std::int64_t>(data, size);
    case SDO_TYPE_NEXUS_U32:
        return listValue(data, size);
    case SDO_TYPE_ASTRING: {
        const char* text = static_cast<const char*>(data);
        return std::string(text, std::find(text, text + size, '\0'));
    }
    default:
        return Bytes{std::string(static_cast<const char*>(data), size)};
    }
}

} // namespace

Object readObject(const void* handle)
{
    Object object;
    if (handle == nullptr)
        return object;
    unsigned short id = 0;
    unsigned char type = 0;
    const void* value = nullptr;
    unsigned int size = 0;
    for (unsigned int index = 0; morlan_sdo_property_at(handle, index, &id, &type, &value, &size) == 0;
         ++index)
        if (value != nullptr)
            object.properties.push_back({id, type, readValue(type, value, size)});
    object.identity.resize(ral_object_identity(handle, nullptr, 0));
    ral_object_identity(handle, object.identity.data(), object.identity.size() + 1);
    return object;
}

} // namespace zarnekctl
