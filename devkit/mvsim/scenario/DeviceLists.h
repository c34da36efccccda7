// Reads the lists of an adapter's devices, and sees to it that no two bear the same number. Both throw
// FormatError.
#ifndef ZARNEK_DEVKIT_MVSIM_DEVICELISTS_H
#define ZARNEK_DEVKIT_MVSIM_DEVICELISTS_H

#include "mvsim/model/StorageModel.h"
#include "mvsim/scenario/StrictObject.h"

namespace mvsim
{

// The devices of a first description.
void readDevices(StrictObject& object, Adapter& adapter);
// What a step makes of them.
void changeDevices(StrictObject& object, Adapter& adapter);

} // namespace mvsim

#endif
