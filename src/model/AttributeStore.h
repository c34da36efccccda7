// The operations of the attribute store, written once for all classes that are also attribute bags: on a
// class's static table, and on the value map of an object, which is an index of the fields that were set.
// Nothing is allocated for a value or freed through that map.
#ifndef ZARNEK_MODEL_ATTRIBUTESTORE_H
#define ZARNEK_MODEL_ATTRIBUTESTORE_H

#include "model/SAttribTypeProp.h"

#include <string>
#include <utility>

namespace stg::attributes
{

// Adds a row to a class's table unless the name is there: the first writer wins.
inline void setKeyValPair(AttribTypeMap& table, std::string name, std::string typeTag,
                          unsigned int propertyId)
{
    table.emplace(std::move(name), SAttribTypeProp_t{std::move(typeTag), propertyId});
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

} // namespace stg::attributes

#endif
