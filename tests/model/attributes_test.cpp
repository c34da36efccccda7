// Every attribute of the five classes, against attributes.txt.
#include "common/PluginTest.h"
#include "events/CAlert.h"
#include "model/CMarvellController.h"
#include "model/CPhysicalDevice.h"
#include "model/CVirtualDevice.h"

#include <fstream>
#include <list>
#include <sstream>

using testing::ElementsAre, testing::Key, testing::Pair;

namespace
{

struct Attribute {
    std::string name, typeWord, propertyId, unset;

    bool hasField() const { return typeWord != "CONTROL_NOTIFY_TYPE"; }
};

std::vector<Attribute> attributesOf(const std::string& wantedClass)
{
    std::vector<Attribute> rows;
    std::ifstream table(ZARNEK_SOURCE_DIR "/tests/model/attributes.txt");
    for (std::string line, className; std::getline(table, line);) {
        Attribute row;
        std::istringstream words(line);
        if (words >> className >> row.name >> row.typeWord >> row.propertyId >> row.unset &&
            className == wantedClass)
            rows.push_back(row);
    }
    return rows;
}

template <class Field, class Visitor>
auto visitAs(void* field, Visitor visit)
{
    return visit(*static_cast<Field*>(field));
}

// Calls the visitor with an attribute's field, whose type follows from the type word.
template <class Visitor>
auto visitField(const std::string& typeWord, void* field, Visitor visit)
{
    return typeWord == "STDSTR"            ? visitAs<std::string>(field, visit)
           : typeWord == "NEXUS_TYPE"      ? visitAs<std::vector<unsigned int>>(field, visit)
           : typeWord == "VD_MEMBER_TYPE"  ? visitAs<std::list<unsigned int>>(field, visit)
           : typeWord == "BOOL_TYPE"       ? visitAs<bool>(field, visit)
           : typeWord == "USHORT_INT"      ? visitAs<unsigned short>(field, visit)
           : typeWord == "ULONG_ULONG_INT" ? visitAs<unsigned long long>(field, visit)
                                           : visitAs<unsigned int>(field, visit);
}

std::string valueOf(const Attribute& row, const stg::AttribValMap& values)
{
    return visitField(row.typeWord, values.at(row.name), [](const auto& field) -> std::string {
        if constexpr (std::is_arithmetic_v<std::decay_t<decltype(field)>>)
            return std::to_string(field);
        else
            return field.empty() ? "empty" : testing::PrintToString(field);
    });
}

// Sets a field to a value of this number.
void set(const Attribute& row, const stg::AttribValMap& values, unsigned int number)
{
    visitField(row.typeWord, values.at(row.name), [number](auto& field) {
        using Field = std::decay_t<decltype(field)>;
        if constexpr (std::is_same_v<Field, std::string>)
            field = std::to_string(number);
        else if constexpr (std::is_arithmetic_v<Field>)
            field = static_cast<Field>(number);
        else
            field = {number};
    });
}

void expectSameValues(const std::vector<Attribute>& rows, const stg::AttribValMap& wanted,
                      const stg::AttribValMap& found)
{
    ASSERT_EQ(found.size(), wanted.size());
    for (const Attribute& row : rows) {
        if (!row.hasField())
            continue;
        ASSERT_EQ(found.count(row.name), 1U) << row.name;
        EXPECT_EQ(valueOf(row, found), valueOf(row, wanted)) << row.name;
        EXPECT_NE(found.at(row.name), wanted.at(row.name)) << row.name << ": an object has its own field";
    }
}

template <class Object>
void checkAttributes(const std::string& className, const stg::AttribTypeMap& table,
                     stg::AttribValMap& (*valuesOf)(Object&))
{
    SCOPED_TRACE(className);
    const std::vector<Attribute> rows = attributesOf(className);
    const Object untouched;
    Object object(untouched); // a copy has an entry for each attribute, set or not
    stg::AttribValMap& values = valuesOf(object);
    ASSERT_EQ(table.size(), rows.size());
    unsigned int number = 0;
    for (const Attribute& row : rows) {
        ASSERT_EQ(table.count(row.name), 1U) << row.name;
        EXPECT_EQ(table.at(row.name).m_AttribType, row.typeWord) << row.name;
        EXPECT_EQ(std::to_string(table.at(row.name).m_PropertyID), row.propertyId) << row.name;
        ASSERT_EQ(values.count(row.name) == 1, row.hasField()) << row.name;
        if (row.hasField()) {
            EXPECT_EQ(valueOf(row, values), row.unset) << row.name;
            set(row, values, ++number);
        }
    }
    Object copy(object);
    expectSameValues(rows, values, valuesOf(copy));
    if constexpr (std::is_assignable_v<Object&, stg::AttribValMap&>) {
        Object assigned(object);
        stg::AttribValMap& assignedValues = valuesOf(assigned);
        for (const Attribute& row : rows)
            set(row, assignedValues, 0);
        assignedValues = {}; // so that the setters have to enter them
        assigned = values;
        expectSameValues(rows, values, assignedValues);
    }
}

using AttributeTest = PluginTest;

TEST_F(AttributeTest, TablesCopiesAndAssignmentsHaveThemAll)
{
    const auto valuesOf = [](auto& object) -> stg::AttribValMap& { return *object.getAttribValueMap(); };
    checkAttributes<CMarvellController>("IController", IController::getAttribNameAndType(), valuesOf);
    checkAttributes<CPhysicalDevice>(
        "CPhysicalDevice", CPhysicalDevice::getPdAttribNameAndType(),
        [](CPhysicalDevice& disk) -> stg::AttribValMap& { return *disk.getPdAttribValueMap(); });
    checkAttributes<CVirtualDevice>("CVirtualDevice", CVirtualDevice::getAttribNameAndType(), valuesOf);
    checkAttributes<CAlert>("CAlert", CAlert::getAttribNameAndType(), valuesOf);
    checkAttributes<CControl_Notify>("CControl_Notify", CControl_Notify::getAttribNameAndType(), valuesOf);
}

TEST_F(AttributeTest, EntriesStayUntilTheyAreRemoved)
{
    int one = 1, two = 2;
    IController controller;
    for (int* const value : {&one, &two}) {
        for (const char* const name : {"b", "Z"}) {
            controller.insertIntoAttribValMap(name, value); // the first stays
        }
    }
    controller.updateAttribValMap("b", &two);
    controller.updateAttribValMap("null", nullptr);
    controller.deleteFromMap("null");
    EXPECT_THAT(*controller.getAttribValueMap(),
                ElementsAre(Pair("Z", &one), Pair("b", &two), Pair("null", nullptr)));
    IController::setKeyValPair("m_DevID", "STDSTR", 8); // of a table too the first row stays
    EXPECT_EQ(IController::getAttribNameAndType()["m_DevID"].m_AttribType, "UNSIGNED_INTEGER");
    controller.updateAttribValMap("null", &one);
    controller.clearMap();
    CPhysicalDevice disk;
    disk.setSlotNum(3);
    disk.clearMap();
    EXPECT_EQ(controller.getAttribValueMap()->size() + disk.getPdAttribValueMap()->size(), 0U);
}

} // namespace
