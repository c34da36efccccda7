// SDO objects: what they hold, who owns what, what is refused.
#include "morlan/morlan_inspect.h"

#include <morlan.h>
#include <sdo.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

namespace
{

int addU32(void* object, unsigned short id, std::uint32_t value)
{
    return SMSDOConfigAddData(object, id, SDO_TYPE_U32, &value, sizeof value, 1);
}

int addText(void* object, unsigned short id, const char* text)
{
    return SMSDOConfigAddData(object, id, SDO_TYPE_ASTRING, text,
                              static_cast<unsigned int>(std::strlen(text) + 1), 1);
}

int addNested(void* object, unsigned short id, void* nested)
{
    return SMSDOConfigAddData(object, id, SDO_TYPE_SDOCONFIG, nested, 4, 1);
}

void* nestedOf(const void* object, unsigned short id)
{
    void* nested = nullptr;
    unsigned int size = sizeof nested;
    EXPECT_EQ(SMSDOConfigGetDataByID(object, id, 0, &nested, &size), 0);
    EXPECT_EQ(size, sizeof(void*));
    return nested;
}

// All that an object holds, as `id:value` in order; nested objects in braces.
std::string content(const void* object)
{
    std::string text;
    unsigned short id = 0;
    unsigned char type = 0;
    const void* value = nullptr;
    unsigned int size = 0;
    for (unsigned int i = 0; morlan_sdo_property_at(object, i, &id, &type, &value, &size) == 0; ++i) {
        text += (i == 0 ? "" : " ") + std::to_string(id) + ':';
        std::uint32_t number = 0;
        if (type == SDO_TYPE_SDOCONFIG)
            text += '{' + content(value) + '}';
        else if (type == SDO_TYPE_ASTRING)
            text += static_cast<const char*>(value);
        else if (size == sizeof number)
            text += (std::memcpy(&number, value, size), std::to_string(number));
    }
    return text;
}

class Sdo : public testing::Test
{
  protected:
    void TearDown() override
    {
        EXPECT_EQ(SMSDOConfigFree(object), 0);
        EXPECT_EQ(morlan_live_sdo_objects(), 0U);
    }

    void* const object = SMSDOConfigAlloc();
};

TEST_F(Sdo, ARepeatedIdReplacesTypeAndValueInItsPlace)
{
    addU32(object, 3, 30);
    addU32(object, 1, 10);
    addU32(object, 2, 20);
    EXPECT_EQ(addText(object, 1, "ten"), 0);
    EXPECT_EQ(content(object), "3:30 1:ten 2:20");
    EXPECT_EQ(morlan_sdo_property_count(object), 3U);
    addNested(object, 3, SMSDOConfigAlloc());
    addU32(object, 1, 11);
    EXPECT_EQ(content(object), "3:{} 1:11 2:20");
}

TEST_F(Sdo, NestedObjectsGoWithTheirHolderOrWhenReplaced)
{
    void* const inner = SMSDOConfigAlloc();
    addNested(inner, 7, SMSDOConfigAlloc());
    ASSERT_EQ(addNested(object, 5, inner), 0);
    EXPECT_EQ(morlan_live_sdo_objects(), 3U);
    EXPECT_NE(SMSDOConfigFree(inner), 0) << "a nested object is not the caller's to free";

    addNested(object, 5, SMSDOConfigAlloc());
    EXPECT_EQ(morlan_live_sdo_objects(), 2U);
    addU32(object, 5, 1);
    EXPECT_EQ(morlan_live_sdo_objects(), 1U);
    addNested(object, 6, SMSDOConfigAlloc());
}

TEST_F(Sdo, ACloneSharesNothing)
{
    void* const inner = SMSDOConfigAlloc();
    void* const innermost = SMSDOConfigAlloc();
    addU32(innermost, 9, 90);
    addNested(inner, 8, innermost);
    addU32(object, 1, 10);
    addNested(object, 2, inner);

    void* const clone = SMSDOConfigClone(object);
    void* const part = SMSDOConfigClone(inner);
    addU32(innermost, 9, 91);
    addText(object, 1, "changed");
    EXPECT_EQ(content(clone), "1:10 2:{8:{9:90}}");
    EXPECT_EQ(content(part), "8:{9:90}");
    EXPECT_NE(SMSDOConfigFree(nestedOf(clone, 2)), 0) << "the copy of a nested object belongs to the clone";

    addNested(object, 3, part); // a clone of a nested object belongs to nobody
    EXPECT_EQ(content(object), "1:changed 2:{8:{9:91}} 3:{8:{9:90}}");
    EXPECT_EQ(SMSDOConfigFree(clone), 0);
    EXPECT_EQ(morlan_live_sdo_objects(), 5U);
}

TEST_F(Sdo, RefusesWhatItCannotHold)
{
    void* const inner = SMSDOConfigAlloc();
    void* const innermost = SMSDOConfigAlloc();
    addNested(inner, 8, innermost);
    addNested(object, 2, inner);
    addU32(object, 1, 10);
    const std::string before = content(object);
    void* const other = SMSDOConfigAlloc();
    const std::uint32_t number = 5;

    const struct {
        const char* what;
        int status;
    } cases[] = {
        {"null object", addU32(nullptr, 1, 11)},
        {"null object for a nested one", addNested(nullptr, 1, other)},
        {"null value", SMSDOConfigAddData(object, 1, SDO_TYPE_U32, nullptr, 4, 1)},
        {"no bytes", SMSDOConfigAddData(object, 1, SDO_TYPE_U32, &number, 0, 1)},
        {"null nested object", addNested(object, 1, nullptr)},
        {"nested in another place", addNested(object, 1, innermost)},
        {"nested here already", addNested(object, 2, inner)},
        {"nested in another object", addNested(other, 1, inner)},
        {"itself", addNested(object, 1, object)},
        {"what holds it", addNested(innermost, 1, object)},
        {"not an object", addNested(object, 1, const_cast<char*>("no object at all"))},
        {"free null", SMSDOConfigFree(nullptr)},
    };
    for (const auto& refused : cases)
        EXPECT_NE(refused.status, 0) << refused.what;
    EXPECT_EQ(SMSDOConfigClone(nullptr), nullptr);
    EXPECT_EQ(content(object), before);
    EXPECT_EQ(morlan_live_sdo_objects(), 4U);
    SMSDOConfigFree(other);
}

TEST_F(Sdo, ReadsOnlyWhatFits)
{
    addText(object, 4, "abc");
    const struct {
        const char* what;
        const void* object;
        unsigned short id;
        int index;
        unsigned int room;
        bool delivered;
    } cases[] = {
        {"exact room", object, 4, 0, 4, true},      {"more room", object, 4, 0, 16, true},
        {"one byte short", object, 4, 0, 3, false}, {"no room", object, 4, 0, 0, false},
        {"absent id", object, 5, 0, 16, false},     {"another index", object, 4, 1, 16, false},
        {"null object", nullptr, 4, 0, 16, false},
    };
    for (const auto& read : cases) {
        char buffer[16] = "untouched";
        unsigned int size = read.room;
        EXPECT_EQ(SMSDOConfigGetDataByID(read.object, read.id, read.index, buffer, &size) == 0,
                  read.delivered)
            << read.what;
        EXPECT_STREQ(buffer, read.delivered ? "abc" : "untouched") << read.what;
        EXPECT_EQ(size, read.delivered ? 4U : read.room) << read.what;
    }
    unsigned int size = 16;
    char buffer[16];
    EXPECT_NE(SMSDOConfigGetDataByID(object, 4, 0, nullptr, &size), 0);
    EXPECT_NE(SMSDOConfigGetDataByID(object, 4, 0, buffer, nullptr), 0);
}

TEST_F(Sdo, PropertiesAreSeenInPlace)
{
    const std::uint32_t nexus[] = {24600, 24810};
    SMSDOConfigAddData(object, 1, SDO_TYPE_NEXUS_U32, nexus, sizeof nexus, 1);
    void* const inner = SMSDOConfigAlloc();
    addNested(object, 2, inner);
    const struct {
        unsigned short id;
        unsigned char type;
        const void* bytes;
        unsigned int size;
    } cases[] = {{1, SDO_TYPE_NEXUS_U32, nexus, sizeof nexus}, {2, SDO_TYPE_SDOCONFIG, &inner, sizeof inner}};

    void* value = nullptr;
    unsigned char type = 0;
    unsigned int size = 0;
    for (const auto& property : cases) {
        ASSERT_EQ(GetProperty2(object, property.id, &value, &type, &size), 0);
        EXPECT_EQ(type, property.type);
        ASSERT_EQ(size, property.size);
        EXPECT_EQ(std::memcmp(value, property.bytes, size), 0);
    }
    EXPECT_EQ(nestedOf(object, 2), inner);
    EXPECT_NE(GetProperty2(object, 3, &value, &type, &size), 0);
    EXPECT_NE(GetProperty2(nullptr, 1, &value, &type, &size), 0);
    EXPECT_NE(GetProperty2(object, 1, nullptr, &type, &size), 0);
}

} // namespace
