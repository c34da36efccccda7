// How well an object is, as colours and severities show it.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_HEALTH_H
#define ZARNEK_DEVKIT_ZARNEKCTL_HEALTH_H

#include "zarnekctl/host/Object.h"

namespace zarnekctl
{

enum class Health { Good, Unknown, Warning, Critical };

// By its status property.
Health healthOf(const Object& object);

} // namespace zarnekctl

#endif
