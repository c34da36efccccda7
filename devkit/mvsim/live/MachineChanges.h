// What happened between two looks at the live machine.
#ifndef ZARNEK_DEVKIT_MVSIM_MACHINECHANGES_H
#define ZARNEK_DEVKIT_MVSIM_MACHINECHANGES_H

#include "mvsim/live/SeenMachine.h"

namespace mvsim
{

// The events, disks first, then arrays, then the controller, so that an array's members are told of ahead of
// it. Devices are the same when their ids are.
std::vector<PendingEvent> changesBetween(const SeenMachine& before, const SeenMachine& after);

} // namespace mvsim

#endif
