// SDO objects as tests make and read them.
#ifndef ZARNEK_TESTS_SDOOBJECT_H
#define ZARNEK_TESTS_SDOOBJECT_H

#include "morlan/morlan_inspect.h"

#include <morlan.h>
#include <sdo.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

struct SdoProperty {
    unsigned short id = 0;
    unsigned char type = 0;
    const void* value = nullptr; // points into the object; a nested object is its own value
    unsigned int size = 0;

    std::vector<unsigned int> numbers() const
    {
        std::vector<unsigned int> read(size / sizeof(unsigned int));
        std::memcpy(read.data(), value, size);
        return read;
    }
};

// An object's properties in their order.
inline std::vector<SdoProperty> propertiesOf(const void* object)
{
    std::vector<SdoProperty> all;
    SdoProperty next;
    for (unsigned int index = 0;
         morlan_sdo_property_at(object, index, &next.id, &next.type, &next.value, &next.size) == 0; ++index)
        all.push_back(next);
    return all;
}

// The value of a property as text: a number of any width, unsigned; a text; a nexus' ids with blanks; the
// values of a nested object.
struct SdoValue : std::string {
    SdoValue(const char* text) : std::string(text) {}
    SdoValue(const std::string& text) : std::string(text) {}
    template <class Number, class = std::enable_if_t<std::is_integral_v<Number>>>
    SdoValue(Number number) : std::string(std::to_string(number))
    {
    }
    SdoValue(const std::vector<unsigned int>& nexus)
    {
        for (const unsigned int id : nexus)
            *this += (empty() ? "" : " ") + std::to_string(id);
    }
};
using SdoValues = std::map<unsigned int, SdoValue>;

inline SdoValues valuesOf(const void* object)
{
    SdoValues values;
    for (const SdoProperty& property : propertiesOf(object)) {
        std::uint64_t number = 0;
        if (property.type == SDO_TYPE_ASTRING)
            values.emplace(property.id, static_cast<const char*>(property.value));
        else if (property.type == SDO_TYPE_NEXUS_U32)
            values.emplace(property.id, property.numbers());
        else if (property.type == SDO_TYPE_SDOCONFIG)
            values.merge(valuesOf(property.value));
        else
            values.emplace(property.id, (std::memcpy(&number, property.value, property.size), number));
    }
    return values;
}

// Put one property into an object; the status of the call.
inline int addU32(void* object, unsigned int id, std::uint32_t value)
{
    return SMSDOConfigAddData(object, static_cast<unsigned short>(id), SDO_TYPE_U32, &value, sizeof value, 1);
}

inline int addText(void* object, unsigned int id, const std::string& text)
{
    return SMSDOConfigAddData(object, static_cast<unsigned short>(id), SDO_TYPE_ASTRING, text.c_str(),
                              static_cast<unsigned int>(text.size() + 1), 1);
}

// The first `size` bytes of a nexus of these properties.
inline int addNexus(void* object, const std::vector<unsigned int>& ids, std::size_t size)
{
    return SMSDOConfigAddData(object, SSPROP_NEXUS_U32, SDO_TYPE_NEXUS_U32, ids.data(),
                              static_cast<unsigned int>(size), 1);
}

constexpr unsigned int NO_NUMBER = 0xFFFFFFFF;

// The value of a property of four bytes; NO_NUMBER for an absent one.
inline unsigned int numberOf(const void* object, unsigned int id)
{
    for (const SdoProperty& property : propertiesOf(object))
        if (property.id == id && property.size == sizeof(unsigned int))
            return property.numbers().front();
    return NO_NUMBER;
}

using SdoNumbers = std::map<unsigned int, unsigned int>;

// An object with these numbers, of which all but type and vendor layer are its identity. The caller's to
// free.
inline void* makeObject(const SdoNumbers& numbers)
{
    void* const object = SMSDOConfigAlloc();
    std::vector<unsigned int> nexus;
    for (const auto& [id, value] : numbers) {
        addU32(object, id, value);
        if (id != SSPROP_OBJTYPE_U32 && id != SSPROP_VILNUMBER_U32)
            nexus.push_back(id);
    }
    addNexus(object, nexus, nexus.size() * sizeof(unsigned int));
    return object;
}

#endif
