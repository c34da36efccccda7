// What names an SDO object in the data engine: its object type, its vendor layer, and the values of the
// properties that its nexus lists, in the order of that list.
#ifndef ZARNEK_DEVKIT_RAL_IDENTITY_H
#define ZARNEK_DEVKIT_RAL_IDENTITY_H

#include <optional>
#include <string>

namespace ral
{

struct Identity {
    unsigned int type;
    // `type/layer id=value ...`. Equal exactly for equal identities, and the same in every build. Numbers
    // count by their value, whatever their width; a property that the object lacks has the value `absent`.
    std::string text;
};

// Nothing for an object without an object type or a nexus, and for null.
std::optional<Identity> identityOf(const void* object);

// The identity's text; `incomplete` for an object without one, `null` for null.
std::string describe(const void* object);
// A notification: its alert number, and the object that it concerns if it names one.
std::string describeNotification(const void* object);

} // namespace ral

#endif
