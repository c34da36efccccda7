#ifndef ZARNEK_MODEL_SATTRIBTYPEPROP_H
#define ZARNEK_MODEL_SATTRIBTYPEPROP_H

#include <map>
#include <string>

namespace stg
{

// How an attribute travels: its type tag and the id of its property; 0 names no property.
struct SAttribTypeProp_t {
    std::string m_AttribType;
    unsigned int m_PropertyID;
};

// The attribute table of a class, by attribute name.
using AttribTypeMap = std::map<std::string, SAttribTypeProp_t>;
// Attribute values by name: those set on an object, each pointing at its own field, or those handed to one.
using AttribValMap = std::map<std::string, void*>;

} // namespace stg

#endif
