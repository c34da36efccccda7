// What follows from the attributes of a class, written once for all classes that are also attribute bags.
//
// A class lists its attributes in one constexpr table: name, type tag, property, and the pair of field and
// setter. From it follow the class's static attribute table, the copying of attributes, the assignment from a
// map, the list of names that can be read back, and the name under which a setter enters its field in the
// object's value map (AttributeStore.h).
#ifndef ZARNEK_MODEL_ATTRIBUTETABLE_H
#define ZARNEK_MODEL_ATTRIBUTETABLE_H

#include "model/AttributeStore.h"
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

// ---- rows

template <class Object, class Field>
struct Binding {
    using Value = Field;
    Field Object::*field;
    void (Object::*setter)(Field);
};

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

// A row while its field and setter are still part of its type: pointers to virtual members can be compared as
// template arguments only.
template <auto Field, auto Setter>
struct BoundRow {
    const char* name;
    const char* tag;
    unsigned int propertyId;
};

template <class Object, class Field>
constexpr Binding<Object, Field> bind(Field Object::*field, void (Object::*setter)(Field))
{
    return {field, setter};
}

template <class Object, auto Field, auto Setter>
constexpr Row<Object> unbound(BoundRow<Field, Setter> row)
{
    return {row.name, row.tag, row.propertyId, bind(Field, Setter)};
}

template <auto>
struct Member {
};

template <class Wanted, class... Members>
constexpr bool standsOnce()
{
    return (std::is_same_v<Wanted, Members> + ...) == 1;
}

template <class... Members>
constexpr bool areDistinct()
{
    return (standsOnce<Members, Members...>() && ...);
}

// A class's table of its rows, in the order in which assignment from a map calls the setters.
template <class Object, auto... Fields, auto... Setters>
constexpr std::array<Row<Object>, sizeof...(Fields)> tableOf(BoundRow<Fields, Setters>... rows)
{
    static_assert(areDistinct<Member<Fields>...>(), "each field has one row");
    static_assert(areDistinct<Member<Setters>...>(), "each setter has one row");
    return {unbound<Object>(rows)...};
}

// ---- what must hold of a table

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

// The place of a name in a list of rows or names; the list's size when it is not there.
template <class List, class NameOf>
constexpr std::size_t placeOf(std::string_view name, const List& list, NameOf nameOf)
{
    std::size_t place = 0;
    while (place < std::size(list) && nameOf(list[place]) != name)
        ++place;
    return place;
}

template <class Object>
constexpr std::string_view nameOfRow(const Row<Object>& row)
{
    return row.name;
}

// As many listed rows as the class has, names that do not repeat, tags that fit their fields.
template <class Object, std::size_t Size>
constexpr bool isSound(const std::array<Row<Object>, Size>& rows, std::size_t listedRows)
{
    std::size_t listed = 0;
    for (std::size_t place = 0; place < Size; ++place) {
        const Row<Object>& row = rows[place];
        if (placeOf(row.name, rows, nameOfRow<Object>) != place)
            return false;
        if (!row.listed())
            continue;
        ++listed;
        const bool fits = std::visit(
            [&row](const auto& binding) {
                return tagFits<typename std::decay_t<decltype(binding)>::Value>(row.tag);
            },
            row.binding);
        if (!fits)
            return false;
    }
    return listed == listedRows;
}

// The names of a table in the order of its rows, but for those that stand elsewhere. A move takes a name out
// and puts it behind another; one that names no row is no constant expression.
struct Move {
    const char* name;
    const char* behind;
};

template <class Object, std::size_t Size, std::size_t Count>
constexpr std::array<const char*, Size> namesOf(const std::array<Row<Object>, Size>& rows,
                                                const Move (&moves)[Count])
{
    std::array<const char*, Size> names{};
    for (std::size_t place = 0; place < Size; ++place)
        names[place] = rows[place].name;
    const auto placeIn = [&names](const char* name) {
        return placeOf(name, names, [](std::string_view listed) { return listed; });
    };
    for (const Move& move : moves) {
        std::size_t place = placeIn(move.name);
        const char* const moved = names.at(place);
        for (; place + 1 < Size; ++place)
            names[place] = names[place + 1];
        names[Size - 1] = nullptr;
        const std::size_t behind = placeIn(move.behind) + 1;
        for (place = Size - 1; place > behind; --place)
            names[place] = names[place - 1];
        names.at(behind) = moved;
    }
    return names;
}

// ---- the class's table and the object's value map

// The name of the row whose field this is; null if there is none.
template <auto Field, class Object, class Value, std::size_t Size>
constexpr const char* nameOf(const std::array<Row<Object>, Size>& rows, Value Object::* /*deduced*/)
{
    using Wanted = Binding<Object, Value>;
    for (const Row<Object>& row : rows)
        if (std::holds_alternative<Wanted>(row.binding) && std::get<Wanted>(row.binding).field == Field)
            return row.name;
    return nullptr;
}

// Sets a field and enters it in the object's value map under the name of its row. `Table` has the class's
// rows as ROWS; `enter` is the class's own way into its map.
template <class Table, auto Field, class Object, class Value>
void store(Object& object, Value value, void (Object::*enter)(std::string, void*))
{
    constexpr const char* NAME = nameOf<Field>(Table::ROWS, Field);
    static_assert(NAME != nullptr, "the field has a row");
    object.*Field = std::move(value);
    (object.*enter)(NAME, &(object.*Field));
}

// Enters the listed rows into the class's table.
template <class Object, std::size_t Size>
void fillTable(const std::array<Row<Object>, Size>& rows)
{
    for (const Row<Object>& row : rows)
        if (row.listed())
            Object::setKeyValPair(row.name, row.tag, row.propertyId);
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
// Setters are called virtually where they are virtual.
template <class Object, std::size_t Size>
void assign(const std::array<Row<Object>, Size>& rows, Object& target, const AttribValMap& values)
{
    for (const Row<Object>& row : rows) {
        const void* const value = retrieve(values, row.name);
        if (value == nullptr)
            continue;
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

// A row of the table of a class, which is called Owner where the row stands. The second form is for an
// attribute that has a setter but no row in the class's static table and no part in copies.
#define ZARNEK_ATTRIBUTE(field, setter, tag, propertyId)                                                     \
    stg::attributes::BoundRow<&Owner::field, &Owner::setter>                                                 \
    {                                                                                                        \
#field, stg::tag, propertyId                                                                         \
    }
#define ZARNEK_UNLISTED_ATTRIBUTE(field, setter)                                                             \
    stg::attributes::BoundRow<&Owner::field, &Owner::setter>                                                 \
    {                                                                                                        \
#field, nullptr, 0                                                                                   \
    }

#endif
