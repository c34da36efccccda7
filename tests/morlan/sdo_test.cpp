// SDO objects: what they hold and who owns what.
#include "common/SdoObject.h"

#include <gtest/gtest.h>

namespace
{

int addNested(void* object, unsigned short id, void* nested)
{
    return SMSDOConfigAddData(object, id, SDO_TYPE_SDOCONFIG, nested, 4, 1);
}

// All that an object holds, as `id:value` in order; nested objects in braces.
std::string content(const void* object)
{
    std::string text;
    for (const SdoProperty& property : propertiesOf(object))
        text += (text.empty() ? "" : " ") + std::to_string(property.id) + ':' +
                (property.type == SDO_TYPE_SDOCONFIG ? '{' + content(property.value) + '}'
                                                     : valuesOf(object).at(property.id));
    return text;
}

// An object with a number and an object in an object.
class Sdo : public testing::Test
{
  protected:
    Sdo()
    {
        addU32(innermost, 9, 90);
        addNested(inner, 8, innermost);
        addU32(object, 1, 10);
        EXPECT_EQ(addNested(object, 2, inner), 0);
    }
    ~Sdo() override
    {
        EXPECT_EQ(SMSDOConfigFree(object), 0);
        EXPECT_EQ(morlan_live_sdo_objects(), 0U);
    }

    void* const object = SMSDOConfigAlloc();
    void* const inner = SMSDOConfigAlloc();
    void* const innermost = SMSDOConfigAlloc();
};

TEST_F(Sdo, ARepeatedIdReplacesTypeAndValueInItsPlace)
{
    addU32(object, 3, 30);
    EXPECT_EQ(addText(object, 1, "ten"), 0);
    EXPECT_EQ(content(object), "1:ten 2:{8:{9:90}} 3:30");
    EXPECT_EQ(addNested(object, 2, SMSDOConfigAlloc()), 0);
    EXPECT_EQ(morlan_live_sdo_objects(), 2U) << "what was replaced went with all in it";
    EXPECT_EQ(addU32(object, 2, 20), 0);
    EXPECT_EQ(content(object), "1:ten 2:20 3:30");
    EXPECT_EQ(morlan_live_sdo_objects(), 1U);
}

TEST_F(Sdo, ACloneSharesNothing)
{
    void* const clone = SMSDOConfigClone(object);
    void* const part = SMSDOConfigClone(inner);
    addU32(innermost, 9, 91);
    addText(object, 1, "changed");
    EXPECT_EQ(content(clone), "1:10 2:{8:{9:90}}");
    EXPECT_EQ(content(part), "8:{9:90}");
    EXPECT_EQ(addNested(object, 3, part), 0) << "a clone of a nested object belongs to nobody";
    EXPECT_EQ(content(object), "1:changed 2:{8:{9:91}} 3:{8:{9:90}}");
    EXPECT_EQ(SMSDOConfigFree(clone), 0);
    EXPECT_EQ(morlan_live_sdo_objects(), 5U);
}

TEST_F(Sdo, RefusedAdditionsStoreNothing)
{
    const std::string before = content(object);
    const std::uint32_t number = 1;
    const struct {
        const char* what;
        int status;
    } cases[] = {
        {"null data", SMSDOConfigAddData(object, 1, SDO_TYPE_U32, nullptr, 4, 1)},
        {"a null object in the place of a number", addNested(object, 1, nullptr)},
        {"a null object in the place of an object", addNested(object, 2, nullptr)},
        {"to a null object", SMSDOConfigAddData(nullptr, 1, SDO_TYPE_U32, &number, 4, 1)},
        {"the object itself", addNested(object, 3, object)},
        {"the object in what it holds", addNested(innermost, 3, object)},
        {"what another one holds", addNested(object, 3, innermost)},
    };
    for (const auto& addition : cases)
        EXPECT_NE(addition.status, 0) << addition.what;
    EXPECT_EQ(content(object), before);
    EXPECT_NE(SMSDOConfigFree(inner), 0) << "it goes with the one that holds it";
    EXPECT_NE(SMSDOConfigFree(nullptr), 0);
    EXPECT_EQ(SMSDOConfigClone(nullptr), nullptr);
}

TEST_F(Sdo, ReadsOnlyWhatFits)
{
    addText(object, 4, "abc");
    const struct {
        unsigned short id;
        unsigned int room;
        bool delivered;
    } cases[] = {{4, 4, true}, {4, 16, true}, {4, 3, false}, {5, 16, false}};
    for (const auto& read : cases) {
        SCOPED_TRACE(testing::Message() << "id " << read.id << " with room for " << read.room);
        char buffer[16] = "untouched";
        unsigned int size = read.room;
        EXPECT_EQ(SMSDOConfigGetDataByID(object, read.id, 0, buffer, &size) == 0, read.delivered);
        EXPECT_STREQ(buffer, read.delivered ? "abc" : "untouched");
        EXPECT_EQ(size, read.delivered ? 4U : read.room);
    }
}

} // namespace
