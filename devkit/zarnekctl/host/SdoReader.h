// Copies SDO objects into plain values.
#ifndef ZARNEKCTL_SDO_READER_H
#define ZARNEKCTL_SDO_READER_H

#include "zarnekctl/host/Object.h"

namespace zarnekctl
{

// `handle` is an SDO object of the support library, borrowed for the call and not changed meanwhile. A null
// handle is an object without properties.
Object readObject(const void* handle);

} // namespace zarnekctl

#endif
