// Every attribute of the five classes, against attributes.txt.
#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "model/AttributeHelper.h"
#include "model/CMarvelPhysicalDevice.h"
#include "model/CMarvelVirtualDevice.h"
#include "model/CMarvellController.h"
#include "mvlayer/Binders.h"

using testing::ElementsAre, testing::Key, testing::Pair, testing::PrintToString;

namespace
{

// Operations take a number for a value, and give values as they are printed.
template <class Object>
struct Attribute {
    std::string name, typeWord;
    unsigned int propertyId;
    std::string unset;
    std::string (*set)(Object& object, unsigned int number);
    std::string (*get)(Object& object);
    void (*writeField)(void* field, unsigned int number);
    std::string (*readField)(const void* field);

    bool listed() const { return typeWord != "NONE"; }
};

template <class Value>
Value valueOf(unsigned int number)
{
    if constexpr (std::is_same_v<Value, std::string>)
        return std::to_string(number);
    else if constexpr (std::is_arithmetic_v<Value>)
        return static_cast<Value>(number);
    else
        return {number};
}

template <class Object>
std::vector<Attribute<Object>> attributes;

template <class Object, auto Setter, auto Getter>
void add(const char* name, const char* typeWord, unsigned int propertyId, const char* unset)
{
    using Value = std::decay_t<decltype((std::declval<Object&>().*Getter)())>;
    attributes<Object>.push_back(
        {name, typeWord, propertyId, unset,
         [](Object& object, unsigned int number) {
             const auto value = valueOf<Value>(number);
             (object.*Setter)(value);
             return PrintToString(value);
         },
         [](Object& object) { return PrintToString((object.*Getter)()); },
         [](void* field, unsigned int number) { *static_cast<Value*>(field) = valueOf<Value>(number); },
         [](const void* field) { return PrintToString(*static_cast<const Value*>(field)); }});
}

template <class Object>
stg::AttribValMap& valuesOf(Object& object)
{
    if constexpr (std::is_base_of_v<CPhysicalDevice, Object>)
        return *object.getPdAttribValueMap();
    else
        return *object.getAttribValueMap();
}

template <class Object>
void update(Object& object, const std::string& name, void* value)
{
    if constexpr (std::is_base_of_v<CPhysicalDevice, Object>)
        object.updatePdAttribValMap(name, value);
    else
        object.updateAttribValMap(name, value);
}

template <class Object, class Base>
class Check
{
  public:
    explicit Check(const stg::AttribTypeMap& types)
    {
        SCOPED_TRACE(typeid(Object).name());
        std::size_t listed = 0;
        for (const Attribute<Base>& row : attributes<Base>)
            if (setAndGet(row), row.listed()) {
                ++listed;
                EXPECT_EQ(types.at(row.name).m_AttribType, row.typeWord) << row.name;
                EXPECT_EQ(types.at(row.name).m_PropertyID, row.propertyId) << row.name;
            }
        EXPECT_EQ(types.size(), listed + types.count("m_ControlNotify"));
        const Object bare;
        Object entered(bare), copied(m_object), assigned;
        EXPECT_EQ(valuesOf(entered).size(), listed) << "those that are not set are entered too";
        expectLike(copied, false);
        assigned = m_object;
        expectLike(assigned, false);
        if constexpr (std::is_assignable_v<Object&, stg::AttribValMap&>)
            assignAndClear(copied);
        const std::string first = attributes<Base>.front().name;
        update(entered, "null", nullptr);
        update(entered, first, this);
        EXPECT_EQ(valuesOf(entered).at(first), this);
        for (const std::string& name : {first, std::string("null"), std::string("absent")})
            entered.deleteFromMap({name, this});
        EXPECT_EQ(valuesOf(entered).count(first), 0U);
        EXPECT_EQ(valuesOf(entered).size(), listed) << "an entry without a value stays";
    }

  private:
    void setAndGet(const Attribute<Base>& row)
    {
        EXPECT_EQ(row.get(m_object), row.unset) << row.name;
        row.set(m_object, 0);
        void* const field = valuesOf(m_object).at(row.name);
        row.writeField(field, 0); // a setter of a list writes over elements that are there
        const std::string value = row.set(m_object, ++m_number);
        EXPECT_EQ(row.get(m_object), value) << row.name;
        EXPECT_EQ(row.readField(field), value) << row.name;
        EXPECT_EQ(valuesOf(m_object).size(), m_number) << row.name;
    }
    void expectLike(Object& object, bool unlistedToo)
    {
        for (const Attribute<Base>& row : attributes<Base>) {
            const bool has = row.listed() || unlistedToo;
            EXPECT_EQ(row.get(object), has ? row.get(m_object) : row.unset) << row.name;
            ASSERT_EQ(valuesOf(object).count(row.name), has ? 1U : 0U) << row.name;
            EXPECT_TRUE(!has || valuesOf(object).at(row.name) != valuesOf(m_object).at(row.name))
                << row.name << ": an object has its own field";
        }
    }
    void assignAndClear(Object& object)
    {
        for (const Attribute<Base>& row : attributes<Base>)
            if (row.listed())
                row.writeField(object.retrieveValFromMap(row.name), 0);
        object.clearMap();
        EXPECT_EQ(object.retrieveValFromMap(attributes<Base>.front().name), nullptr);
        EXPECT_EQ(valuesOf(object).size(), 0U);
        object = valuesOf(m_object);
        if constexpr (std::is_same_v<Object, IController>)
            EXPECT_EQ(valuesOf(object).size(), 0U) << "a vendor's controller does it";
        else
            expectLike(object, true);
        Object helped;
        stg::AttributeHelper<Base> helper(helped);
        helper = stg::AttributeHelper<Base>(m_object);
        expectLike(helped, false);
    }

    Object m_object;
    unsigned int m_number = 0;
};

// What no records set: so many attributes without a binder, so many with an empty one.
template <class Object, class Binder>
void expectConstants(std::size_t ofNone, std::size_t ofEmpty)
{
    Object object;
    Binder binder;
    object = static_cast<void*>(nullptr);
    EXPECT_EQ(valuesOf(object).size(), ofNone);
    object = static_cast<void*>(&binder);
    EXPECT_EQ(valuesOf(object).size(), ofEmpty);
}

using AttributeTest = PluginTest;

TEST_F(AttributeTest, TablesSettersCopiesAndAssignmentsHaveThemAll)
{
#define ATTRIBUTE(object, name, setter, getter, typeWord, propertyId, unset)                                 \
    add<object, &object::setter, &object::getter>(#name, #typeWord, propertyId, #unset);
#include "model/attributes.txt"
#undef ATTRIBUTE
    const stg::AttribTypeMap& controllers = IController::getAttribNameAndType();
    Check<IController, IController>{controllers};
    Check<CMarvellController, IController>{controllers};
    Check<CPhysicalDevice, CPhysicalDevice>{CPhysicalDevice::getPdAttribNameAndType()};
    Check<CMarvelPhysicalDevice, CPhysicalDevice>{CPhysicalDevice::getPdAttribNameAndType()};
    Check<CVirtualDevice, CVirtualDevice>{CVirtualDevice::getAttribNameAndType()};
    Check<CMarvelVirtualDevice, CVirtualDevice>{CVirtualDevice::getAttribNameAndType()};
    Check<CAlert, CAlert>{CAlert::getAttribNameAndType()};
    Check<CControl_Notify, CControl_Notify>{CControl_Notify::getAttribNameAndType()};
    const stg::SAttribTypeProp_t& notify = CAlert::getAttribNameAndType().at("m_ControlNotify");
    EXPECT_EQ(notify.m_AttribType + std::to_string(notify.m_PropertyID), "CONTROL_NOTIFY_TYPE24678");
}

TEST_F(AttributeTest, RecordsThatAreNotThereSetConstantsAlone)
{
    expectConstants<IController, stg::QLVCntrlBinder_t>(0, 0);
    expectConstants<CPhysicalDevice, stg::QLVPDBinder_t>(0, 0);
    expectConstants<CVirtualDevice, stg::QLVVDBinder_t>(0, 0);
    expectConstants<CAlert, stg::QLVEventBinder_t>(0, 0);
    expectConstants<CMarvellController, stg::QLVCntrlBinder_t>(1, 10);
    expectConstants<CMarvelPhysicalDevice, stg::QLVPDBinder_t>(1, 6);
    expectConstants<CMarvelVirtualDevice, stg::QLVVDBinder_t>(1, 6);
    expectConstants<CMarvelAlert, stg::QLVEventBinder_t>(0, 1);
    EXPECT_EQ(IController().getCntrlSpecificAttrib()->size(), 0U);
}

TEST_F(AttributeTest, TheFirstEntryStays)
{
    int one = 1, two = 2;
    IController controller;
    for (int* const value : {&one, &two})
        for (const char* const name : {"b", "Z"})
            controller.insertIntoAttribValMap(name, value);
    EXPECT_THAT(*controller.getAttribValueMap(), ElementsAre(Pair("Z", &one), Pair("b", &one)));
    IController::setKeyValPair("m_DevID", "STDSTR", 8);
    EXPECT_EQ(IController::getAttribNameAndType()["m_DevID"].m_AttribType, "UNSIGNED_INTEGER");
}

} // namespace
