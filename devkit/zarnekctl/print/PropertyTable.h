// The one table of the properties that objects and alerts carry: id, name, label and how to say the value.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_PROPERTYTABLE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_PROPERTYTABLE_H

#include "common/Rows.h"
#include "zarnekctl/host/Object.h"

#include <string>

namespace zarnekctl
{

// How a value is said.
enum class Form {
    Number,
    Code, // words from CodeWords
    Size, // bytes
    Stripe,
    Speed,
    Percent,
    Mask,
    Flag, // 0 or 1
    Text,
    Nexus, // ids of properties
    Nested // an object of its own
};

struct PropertyRow {
    unsigned int id;
    const char* name;  // stable, for JSON
    const char* label; // for people
    Form form;
};

devkit::Rows<PropertyRow> propertyRows();
// Null for an id that the table lacks.
const PropertyRow* propertyRow(unsigned int id);
// "property_25000" where the table has no row.
std::string propertyName(unsigned int id);
std::string propertyLabel(unsigned int id);

// The value in words and units, harmless for a terminal; `kind` is that of the object that bears it.
std::string describe(const Property& property, ObjectKind kind, bool asciiOnly = false);
// Whether somebody has set the value.
bool isKnown(const Property& property);
// Whether `describe` says more than the bare value does.
bool hasWords(const Property& property, ObjectKind kind);

} // namespace zarnekctl

#endif
