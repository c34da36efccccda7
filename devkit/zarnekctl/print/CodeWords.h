// Words for the codes that properties carry.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_CODEWORDS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_CODEWORDS_H

#include "zarnekctl/host/Object.h"

#include <cstdint>

namespace zarnekctl
{

// The word for a code of a property of such an object; null when there is none.
const char* codeWord(unsigned int property, ObjectKind kind, std::uint64_t code);

} // namespace zarnekctl

#endif
