// The type tags of attributes, by which the SDO bridge finds their type code.
#ifndef ZARNEK_MODEL_TYPETAGS_H
#define ZARNEK_MODEL_TYPETAGS_H

namespace stg
{

constexpr char TAG_UNSIGNED_INTEGER[] = "UNSIGNED_INTEGER";       // unsigned int
constexpr char TAG_ULONG_ULONG_INT[] = "ULONG_ULONG_INT";         // unsigned long long
constexpr char TAG_USHORT_INT[] = "USHORT_INT";                   // unsigned short
constexpr char TAG_BINARY_DATA_TYPE[] = "BINARY_DATA_TYPE";       // unsigned int, a mask
constexpr char TAG_BOOL_TYPE[] = "BOOL_TYPE";                     // bool, sent in four bytes
constexpr char TAG_STDSTR[] = "STDSTR";                           // std::string
constexpr char TAG_NEXUS_TYPE[] = "NEXUS_TYPE";                   // std::vector<unsigned int>
constexpr char TAG_VD_MEMBER_TYPE[] = "VD_MEMBER_TYPE";           // std::list<unsigned int>, never sent
constexpr char TAG_CONTROL_NOTIFY_TYPE[] = "CONTROL_NOTIFY_TYPE"; // a nested SDO object

} // namespace stg

#endif
