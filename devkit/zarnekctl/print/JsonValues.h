// How objects and properties look in JSON, in the discovery document and in the monitoring stream alike.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_JSONVALUES_H
#define ZARNEK_DEVKIT_ZARNEKCTL_JSONVALUES_H

#include "zarnekctl/host/Object.h"

#include <nlohmann/json.hpp>

namespace zarnekctl
{

using Json = nlohmann::ordered_json;

// Counts up whenever a reader of the older form would go wrong.
constexpr unsigned int JSON_FORMAT_VERSION = 1;

// "controller", "physical_disk", "virtual_disk", "other": stable, unlike the words for people.
const char* jsonKind(ObjectKind kind);

// {"id", "type", "value"}, with "text" for integers beyond 2^53, "words" where words say more than the
// number, "bytes" (hexadecimal) for text that is not UTF-8.
Json propertyJson(const Property& property, ObjectKind kind);
// The properties by name, in the order of the engine.
Json propertiesJson(const Object& object);

} // namespace zarnekctl

#endif
