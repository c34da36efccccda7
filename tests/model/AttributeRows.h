// Rows of attributes, and the bytes of vendor records, for the tests of disks and virtual disks.
#ifndef ZARNEK_TESTS_ATTRIBUTEROWS_H
#define ZARNEK_TESTS_ATTRIBUTEROWS_H

#include "common/PluginTest.h"
#include "model/SAttribTypeProp.h"

#include <cstdint>
#include <cstring>
#include <list>
#include <map>
#include <sstream>

// The numbers of attributes in a line, as the data engine gets them; "-" for one that was not set.
inline std::string numbers(const stg::AttribValMap& values, const std::string& names)
{
    std::string text, name;
    for (std::istringstream stream(names); stream >> name; text += ' ') {
        const auto entry = values.find(name);
        text += entry == values.end() ? "-" : std::to_string(*static_cast<unsigned int*>(entry->second));
    }
    return text;
}

// Writes into a vendor's record at an offset.
template <class Record>
void put(Record& record, std::size_t offset, const std::string& bytes)
{
    std::memcpy(reinterpret_cast<char*>(&record) + offset, bytes.data(), bytes.size());
}
template <class Record>
void put(Record& record, std::size_t offset, std::size_t width, std::uint64_t value)
{
    put(record, offset, std::string(reinterpret_cast<const char*>(&value), width));
}

// Bytes of the number that a tag stands for.
inline std::size_t widthOf(const std::string& tag)
{
    return tag == "BOOL_TYPE" ? 1 : tag == "USHORT_INT" ? 2 : tag == "ULONG_ULONG_INT" ? 8 : 4;
}

// Each row, a name, tag and property: what the class's table says, a copy's default, assignment from a map
// and a copy of what was assigned.
template <class Object, class ValuesOf>
void checkAttributes(const std::string& rows, const stg::AttribTypeMap& table, ValuesOf valuesOf)
{
    unsigned long long number = 0x0102030405060701; // a flag's byte has to be 1
    std::vector<unsigned int> nexus{1};
    std::list<unsigned int> members{1};
    std::string text = "text", name, tag, id;
    std::map<std::string, void*> others{
        {"STDSTR", &text}, {"NEXUS_TYPE", &nexus}, {"VD_MEMBER_TYPE", &members}};
    std::map<std::string, std::string> wanted, found;
    for (std::istringstream stream(rows); stream >> name >> tag >> id;) {
        wanted[name] = tag + id;
        void* const other = others.try_emplace(tag, &number).first->second;
        stg::AttribValMap given{{name, other}, {"m_Unheard", nullptr}};
        Object object;
        Object unset(object);
        const bool isMask = tag == "BINARY_DATA_TYPE";
        if (isMask || tag == "UNSIGNED_INTEGER") {
            EXPECT_EQ(numbers(*valuesOf(unset), name), isMask ? "0 " : "4294967295 ") << name;
        }
        object = given;
        ASSERT_THAT(*valuesOf(object), testing::ElementsAre(testing::Key(name)));
        Object copied(object);
        for (const void* const value : {valuesOf(object)->at(name), valuesOf(copied)->at(name)}) {
            EXPECT_TRUE(tag == "VD_MEMBER_TYPE" ||
                        (tag == "STDSTR" ? *static_cast<const std::string*>(value) == text
                         : tag == "NEXUS_TYPE"
                             ? *static_cast<const std::vector<unsigned int>*>(value) == nexus
                             : std::memcmp(value, other, widthOf(tag)) == 0))
                << name;
        }
    }
    for (const auto& [listed, type] : table)
        found[listed] = type.m_AttribType + std::to_string(type.m_PropertyID);
    EXPECT_EQ(found, wanted);
}

#endif
