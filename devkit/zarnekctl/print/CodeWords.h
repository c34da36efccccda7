// Words for the codes that properties carry.
#ifndef ZARNEKCTL_CODE_WORDS_H
#define ZARNEKCTL_CODE_WORDS_H

#include "zarnekctl/host/Object.h"

#include <cstdint>

namespace zarnekctl
{

// The word for a code of a property of such an object; null when there is none.
const char* codeWord(unsigned int property, ObjectKind kind, std::uint64_t code);

// How an object is, by its status property.
enum class Health { Good, Unknown, Warning, Critical };

Health healthOf(const Object& object);

} // namespace zarnekctl

#endif
