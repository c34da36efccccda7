#include "zarnekctl/host/Object.h"

#include <sdo.h>

namespace zarnekctl
{

namespace
{

std::string numberText(std::optional<std::uint64_t> number)
{
    return number ? std::to_string(*number) : "?";
}

} // namespace

bool operator==(const Bytes& left, const Bytes& right)
{
    return left.data == right.data;
}

bool operator==(const Nested& left, const Nested& right)
{
    return left.object->properties == right.object->properties;
}

bool operator==(const Property& left, const Property& right)
{
    return left.id == right.id && left.type == right.type && left.value == right.value;
}

ObjectKind kindOfType(std::uint64_t objectType)
{
    switch (objectType) {
    case SDO_OBJTYPE_CONTROLLER:
        return ObjectKind::Controller;
    case SDO_OBJTYPE_PHYSICAL_DISK:
        return ObjectKind::PhysicalDisk;
    case SDO_OBJTYPE_VIRTUAL_DISK:
        return ObjectKind::VirtualDisk;
    default:
        return ObjectKind::Other;
    }
}

const char* wordOf(ObjectKind kind)
{
    switch (kind) {
    case ObjectKind::Controller:
        return "controller";
    case ObjectKind::PhysicalDisk:
        return "disk";
    case ObjectKind::VirtualDisk:
        return "virtual disk";
    case ObjectKind::Other:
        break;
    }
    return "object";
}

unsigned int numberProperty(ObjectKind kind)
{
    switch (kind) {
    case ObjectKind::Controller:
        return SSPROP_GLOBALCONTROLLERNUM_U32;
    case ObjectKind::PhysicalDisk:
        return SSPROP_SLOTNUM_U32;
    case ObjectKind::VirtualDisk:
        return SSPROP_LOGICALDRIVENUM_U32;
    case ObjectKind::Other:
        break;
    }
    return SSPROP_NONE;
}

const Property* Object::find(unsigned int id) const
{
    for (const Property& property : properties)
        if (property.id == id)
            return &property;
    return nullptr;
}

std::optional<std::uint64_t> Object::number(unsigned int id) const
{
    const Property* property = find(id);
    const auto* number = property == nullptr ? nullptr : std::get_if<std::uint64_t>(&property->value);
    return number == nullptr ? std::nullopt : std::optional<std::uint64_t>(*number);
}

std::string Object::text(unsigned int id) const
{
    const Property* property = find(id);
    const auto* text = property == nullptr ? nullptr : std::get_if<std::string>(&property->value);
    return text == nullptr ? std::string() : *text;
}

std::uint64_t Object::objectType() const
{
    return number(SSPROP_OBJTYPE_U32).value_or(0);
}

ObjectKind Object::kind() const
{
    return kindOfType(objectType());
}

ObjectKind Object::apparentKind() const
{
    if (objectType() != 0)
        return kind();
    ObjectKind apparent = ObjectKind::Other;
    for (const ObjectKind candidate : {ObjectKind::PhysicalDisk, ObjectKind::VirtualDisk})
        if (find(numberProperty(candidate)) != nullptr)
            apparent = candidate;
    return apparent;
}

std::string Object::shortName() const
{
    const ObjectKind apparent = apparentKind();
    return namedObject(apparent, number(numberProperty(apparent)));
}

std::string Object::fullName() const
{
    const auto controller = number(SSPROP_GLOBALCONTROLLERNUM_U32);
    return kind() == ObjectKind::Controller ? shortName() : onController(shortName(), controller);
}

std::string namedObject(ObjectKind kind, std::optional<std::uint64_t> number)
{
    return kind == ObjectKind::Other ? wordOf(kind) : std::string(wordOf(kind)) + " " + numberText(number);
}

std::string onController(const std::string& name, std::optional<std::uint64_t> controller)
{
    return name + " on controller " + numberText(controller);
}

} // namespace zarnekctl
