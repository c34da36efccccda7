// Copies SDO objects into plain values.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_SDOREADER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_SDOREADER_H

#include "zarnekctl/host/Object.h"

namespace zarnekctl
{

// `handle` is an SDO object of the support library, borrowed for the call and not changed meanwhile. A null
// handle is an object without properties.
Object readObject(const void* handle);

} // namespace zarnekctl

#endif
