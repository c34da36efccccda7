// Plain values read out of the data engine: an object is a list of properties, copied, so that it outlives
// the engine's own objects and can be made by hand in a test.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_OBJECT_H
#define ZARNEK_DEVKIT_ZARNEKCTL_OBJECT_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zarnekctl
{

struct Object;

// Content of a property that fits no known type.
struct Bytes {
    std::string data;
};

// A property that is an object itself; never null.
struct Nested {
    std::shared_ptr<const Object> object;
};

bool operator==(const Bytes& left, const Bytes& right);
bool operator==(const Nested& left, const Nested& right); // by content

using Value =
    std::variant<std::uint64_t, std::int64_t, std::string, std::vector<std::uint32_t>, Bytes, Nested>;

struct Property {
    unsigned int id = 0;
    unsigned int type = 0; // one of the SDO_TYPE numbers
    Value value;
};

bool operator==(const Property& left, const Property& right);
inline bool operator!=(const Property& left, const Property& right)
{
    return !(left == right);
}

enum class ObjectKind { Controller, PhysicalDisk, VirtualDisk, Other };

ObjectKind kindOfType(std::uint64_t objectType);
// "controller", "disk", "virtual disk", "object".
const char* wordOf(ObjectKind kind);
// The property that numbers objects of this kind within their controller: slot, logical drive; for a
// controller its own global number. 0 for others.
unsigned int numberProperty(ObjectKind kind);

struct Object {
    std::vector<Property> properties; // in the order of the engine
    // The data engine's word for which object it is, such as `772/9 24600=0 24810=3`; empty where it has
    // none.
    std::string identity;

    const Property* find(unsigned int id) const; // null when absent
    // Absent when the property is missing or no unsigned number.
    std::optional<std::uint64_t> number(unsigned int id) const;
    // Empty when the property is missing or no text.
    std::string text(unsigned int id) const;

    std::uint64_t objectType() const; // 0 without one
    ObjectKind kind() const;
    // The kind; that of the number it has for an object without a type.
    ObjectKind apparentKind() const;
    // "disk 3", and "disk 3 on controller 0", by the apparent kind.
    std::string shortName() const;
    std::string fullName() const;
};

// "disk 3"; "disk ?" without a number.
std::string namedObject(ObjectKind kind, std::optional<std::uint64_t> number);
// The name with " on controller 0" behind it.
std::string onController(const std::string& name, std::optional<std::uint64_t> controller);

} // namespace zarnekctl

#endif
