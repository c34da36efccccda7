#include "ral/identity.h"

#include "common/text.h"
#include "morlan/morlan_inspect.h"

#include <sdo.h>

#include <cstdint>
#include <cstring>
#include <string_view>

namespace ral
{

namespace
{

constexpr char ABSENT[] = "absent";

struct Property {
    unsigned char type;
    const void* value;
    unsigned int size;
};

std::optional<Property> find(const void* object, unsigned int id)
{
    unsigned short present = 0;
    Property property{};
    for (unsigned int index = 0; morlan_sdo_property_at(object, index, &present, &property.type,
                                                        &property.value, &property.size) == 0;
         ++index)
        if (present == id)
            return property;
    return std::nullopt;
}

template <class Value>
Value read(const Property& property)
{
    Value value;
    std::memcpy(&value, property.value, sizeof value);
    return value;
}

// The low half of a type value tells the kind; the bits above it mark lists and binary data.
bool isNumber(const Property& property)
{
    const unsigned int kind = property.type & 0x0fU;
    const bool hasWidth =
        property.size == 1 || property.size == 2 || property.size == 4 || property.size == 8;
    return hasWidth && kind >= SDO_TYPE_BOOLN && kind <= SDO_TYPE_U64;
}

std::string numberText(const Property& property)
{
    const unsigned int kind = property.type & 0x0fU;
    const bool isSigned = kind >= SDO_TYPE_S8 && kind <= SDO_TYPE_S32;
    switch (property.size) {
    case 1:
        return isSigned ? std::to_string(read<std::int8_t>(property))
                        : std::to_string(read<std::uint8_t>(property));
    case 2:
        return isSigned ? std::to_string(read<std::int16_t>(property))
                        : std::to_string(read<std::uint16_t>(property));
    case 4:
        return isSigned ? std::to_string(read<std::int32_t>(property))
                        : std::to_string(read<std::uint32_t>(property));
    default:
        return isSigned ? std::to_string(read<std::int64_t>(property))
                        : std::to_string(read<std::uint64_t>(property));
    }
}

std::string bytesText(const Property& property)
{
    return "0x" + devkit::hex({static_cast<const char*>(property.value), property.size});
}

std::string valueText(const std::optional<Property>& property)
{
    if (!property)
        return ABSENT;
    if (property->type == SDO_TYPE_SDOCONFIG)
        return '(' + describe(property->value) + ')';
    if (property->type == SDO_TYPE_ASTRING) {
        const char* const text = static_cast<const char*>(property->value);
        return devkit::quoted(std::string_view(text, strnlen(text, property->size)));
    }
    return isNumber(*property) ? numberText(*property) : bytesText(*property);
}

} // namespace

std::optional<Identity> identityOf(const void* object)
{
    const std::optional<Property> type = find(object, SSPROP_OBJTYPE_U32);
    const std::optional<Property> nexus = find(object, SSPROP_NEXUS_U32);
    if (!type || !isNumber(*type) || type->size != sizeof(std::uint32_t))
        return std::nullopt;
    if (!nexus || nexus->type == SDO_TYPE_SDOCONFIG || nexus->size < sizeof(std::uint32_t))
        return std::nullopt;

    Identity identity{read<std::uint32_t>(*type), {}};
    identity.text = std::to_string(identity.type) + '/' + valueText(find(object, SSPROP_VILNUMBER_U32));
    const auto* const ids = static_cast<const unsigned char*>(nexus->value);
    for (unsigned int offset = 0; nexus->size - offset >= sizeof(std::uint32_t);
         offset += sizeof(std::uint32_t)) {
        std::uint32_t id = 0;
        std::memcpy(&id, ids + offset, sizeof id);
        identity.text += ' ' + std::to_string(id) + '=' + valueText(find(object, id));
    }
    return identity;
}

std::string describe(const void* object)
{
    if (object == nullptr)
        return "null";
    const std::optional<Identity> identity = identityOf(object);
    return identity ? identity->text : "incomplete";
}

std::string describeNotification(const void* object)
{
    if (object == nullptr)
        return "null";
    std::string text = "alert " + valueText(find(object, SSPROP_ALERTNUMBER_U32));
    const std::optional<Property> concerned = find(object, SSPROP_CONTROLNOTIFY_SDO);
    if (concerned && concerned->type == SDO_TYPE_SDOCONFIG)
        text += ", " + describe(concerned->value);
    return text;
}

} // namespace ral
