// The attribute store, written once for all classes that are also attribute bags.
//
// A class lists its attributes in one constexpr array of rows: name, type tag, property, and the pair of
// field and setter. From it follow the class's static attribute table, the copying of attributes, the
// assignment from a map and the name under which a setter enters its field in the object's value map. The
// value map is an index of the object's own fields: nothing is allocated for a value or freed through the
// map.
#ifndef ZARNEK_MODEL_ATTRIBUTETABLE_H
#define ZARNEK_MODEL_ATTRIBUTETABLE_H

#include "model/SAttribTypeProp.h"
#include "model/TypeTags.h"

#include <array>
#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace stg::attributes
{

template <class Object, class Field>
struct Binding {
    using Value = Field;
    Field Object::*field;
    void (Object::*setter)(Field);
};

template <class Object, class Field>
constexpr Binding<Object, Field> bind(Field Object::*field, void (Object::*setter)(Field))
{
    return {field, setter};
}

template <class Object>
using AnyBinding =
    std::variant<Binding<Object, unsigned int>, Binding<Object, unsigned long long>,
                 Binding<Object, unsigned short>, Binding<Object, bool>, Binding<Object, std::string>,
                 Binding<Object, std::vector<unsigned int>>, Binding<Object, std::list<unsigned int>>>;

template <class Object>
struct Row {
    const char* name;
    const char* tag; // null: no row in the class's table, and left out of copies
    unsigned int propertyId;
    AnyBinding<Object> binding;

    constexpr bool listed() const { return tag != nullptr; }
};

// Whether a tag is one of those that stand for a field of this type.
template <class Field>
constexpr bool tagFits(std::string_view tag)
{
    if constexpr (std::is_same_v<Field, unsigned int>)
        return tag == TAG_UNSIGNED_INTEGER || tag == TAG_BINARY_DATA_TYPE;
    else if constexpr (std::is_same_v<Field, unsigned long long>)
        return tag == TAG_ULONG_ULONG_INT;
    else if constexpr (std::is_same_v<Field, unsigned short>)
        return tag == TAG_USHORT_INT;
    else if constexpr (std::is_same_v<Field, bool>)
        return tag == TAG_BOOL_TYPE;
    else if constexpr (std::is_same_v<Field, std::string>)
        return tag == TAG_STDSTR;
    else if constexpr (std::is_same_v<Field, std::vector<unsigned int>>)
        return tag == TAG_NEXUS_TYPE;
    else
        return tag == TAG_VD_MEMBER_TYPE;
}

// What must hold of a table: as many listed rows as the class has, names that do not repeat, tags that fit.
template <class Object, std::size_t Size>
constexpr bool isSound(const std::array<Row<Object>, Size>& rows, std::size_t listedRows)
{
    std::size_t listed = 0;
    for (std::size_t row = 0; row < Size; ++row) {
        for (std::size_t other = 0; other < row; ++other)
            if (std::string_view(rows[row].name) == rows[other].name)
                return false;
        if (!rows[row].listed())
            continue;
        ++listed;
        const char* const tag = rows[row].tag;
        const bool fits = std::visit(
            [tag](const auto& binding) {
                return tagFits<typename std::decay_t<decltype(binding)>::Value>(tag);
            },
            rows[row].binding);
        if (!fits)
            return false;
    }
    return listed == listedRows;
}

// The name of the row whose field this is; null if there is none.
template <auto Field, class Object, class Value, std::size_t Size>
constexpr const char* nameOf(const std::array<Row<Object>, Size>& rows, Value Object::* /*deduced*/)
{
    for (std::size_t row = 0; row < Size; ++row) {
        using Wanted = Binding<Object, Value>;
        const AnyBinding<Object>& binding = rows[row].binding;
        if (std::holds_alternative<Wanted>(binding) && std::get<Wanted>(binding).field == Field)
            return rows[row].name;
    }
    return nullptr;
}

// Sets a field and enters it in the object's value map under the name of its row. `Table` has the class's
// rows as ROWS; `enter` is the class's own way into its map, called virtually.
template <class Table, auto Field, class Object, class Value>
void store(Object& object, Value value, void (Object::*enter)(std::string, void*))
{
    constexpr const char* NAME = nameOf<Field>(Table::ROWS, Field);
    static_assert(NAME != nullptr, "the field has a row");
    object.*Field = std::move(value);
    (object.*enter)(NAME, &(object.*Field));
}

// Adds a row to a class's table unless the name is there: the first writer wins.
inline void setKeyValPair(AttribTypeMap& table, std::string name, std::string typeTag,
                          unsigned int propertyId)
{
    table.emplace(std::move(name), SAttribTypeProp_t{std::move(typeTag), propertyId});
}

// Enters the listed rows into the class's table.
template <class Object, std::size_t Size>
void fillTable(const std::array<Row<Object>, Size>& rows)
{
    for (const Row<Object>& row : rows)
        if (row.listed())
            Object::setKeyValPair(row.name, row.tag, row.propertyId);
}

// Adds an entry unless the name is there.
inline void insert(AttribValMap& values, std::string name, void* value)
{
    values.emplace(std::move(name), value);
}

// Adds an entry, or replaces its pointer; the previous one is forgotten.
inline void update(AttribValMap& values, std::string name, void* value)
{
    values[std::move(name)] = value;
}

// The pointer of an entry; null for an absent name.
inline void* retrieve(const AttribValMap& values, const std::string& name)
{
    const auto found = values.find(name);
    return found == values.end() ? nullptr : found->second;
}

// Removes an entry; one whose pointer is null stays.
inline void remove(AttribValMap& values, const std::string& name)
{
    const auto found = values.find(name);
    if (found != values.end() && found->second != nullptr)
        values.erase(found);
}

// Calls the helper with a copy of each entry, in map order, while the helper removes entries.
template <class Helper>
void clear(AttribValMap& values, Helper helper)
{
    for (auto entry = values.begin(); entry != values.end();) {
        const std::pair<std::string, void*> copy = *entry;
        ++entry; // the call erases the entry behind it
        helper(copy);
    }
}

// Copies the listed fields and enters them in the target's value map, set in the source or not.
template <class Object, std::size_t Size>
void copy(const std::array<Row<Object>, Size>& rows, Object& target, AttribValMap& targetValues,
          const Object& source)
{
    for (const Row<Object>& row : rows) {
        if (!row.listed())
            continue;
        std::visit(
            [&](const auto& binding) {
                target.*binding.field = source.*binding.field;
                insert(targetValues, row.name, &(target.*binding.field));
            },
            row.binding);
    }
}

// Calls the setter of every row that the map has a value for, in the order of the rows. A value is read by
// the type of the row's field: a bool is one byte, texts, vectors and lists are objects, which are copied.
// Setters are called virtually.
template <class Object, std::size_t Size>
void assign(const std::array<Row<Object>, Size>& rows, Object& target, const AttribValMap& values)
{
    for (const Row<Object>& row : rows) {
        const auto found = values.find(row.name);
        if (found == values.end() || found->second == nullptr)
            continue;
        const void* const value = found->second;
        std::visit(
            [&](const auto& binding) {
                using Value = typename std::decay_t<decltype(binding)>::Value;
                if constexpr (std::is_same_v<Value, bool>)
                    (target.*binding.setter)(*static_cast<const unsigned char*>(value) != 0);
                else
                    (target.*binding.setter)(*static_cast<const Value*>(value));
            },
            row.binding);
    }
}

} // namespace stg::attributes

// A row of a class's table. `Owner` is the class.
#define ZARNEK_ATTRIBUTE(Owner, field, setter, tag, propertyId)                                              \
    stg::attributes::Row<Owner>                                                                              \
    {                                                                                                        \
#field, stg::tag, propertyId, stg::attributes::bind(&Owner::field, &Owner::setter)                   \
    }
// An attribute that has a setter but no row in the class's table and no part in copies.
#define ZARNEK_UNLISTED_ATTRIBUTE(Owner, field, setter)                                                      \
    stg::attributes::Row<Owner>                                                                              \
    {                                                                                                        \
#field, nullptr, 0, stg::attributes::bind(&Owner::field, &Owner::setter)                             \
    }

#endif
