// Objects made by hand.
#ifndef ZARNEK_TESTS_ZARNEKCTL_OBJECTS_H
#define ZARNEK_TESTS_ZARNEKCTL_OBJECTS_H

#include "zarnekctl/host/Object.h"
#include <sdo.h>

template <typename Value>
void addProperty(zarnekctl::Object& object, unsigned int id, unsigned int type, const Value& value)
{
    zarnekctl::Property& property = object.properties.emplace_back();
    property.id = id;
    property.type = type;
    property.value = value;
}

// With 32-bit numbers as properties, by their ids.
inline zarnekctl::Object objectWith(const std::vector<std::pair<unsigned int, std::uint32_t>>& numbers,
                                    const std::string& identity = "")
{
    zarnekctl::Object object{{}, identity};
    for (const auto& [id, number] : numbers)
        addProperty(object, id, SDO_TYPE_U32, std::uint64_t{number});
    return object;
}

#endif
