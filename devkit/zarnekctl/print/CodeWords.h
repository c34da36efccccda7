// Words for the codes that properties carry. They are labels of metrics too, so that a new wording breaks
// what reads those.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_CODEWORDS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_CODEWORDS_H

#include "zarnekctl/host/Object.h"

#include <cstdint>
#include <vector>

namespace zarnekctl
{

// The word for a code of a property of such an object; null when there is none.
const char* codeWord(unsigned int property, ObjectKind kind, std::uint64_t code);
// All words that `codeWord` can give for this property of such an object, each once.
std::vector<const char*> codeWords(unsigned int property, ObjectKind kind);

} // namespace zarnekctl

#endif
