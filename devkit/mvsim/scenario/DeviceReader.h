// Reads the members of a scenario that make up devices, adapters and events into their records. The same
// readers serve a first description and a later change: what is not given stays as it is. All of them throw
// FormatError.
#ifndef ZARNEK_DEVKIT_MVSIM_DEVICEREADER_H
#define ZARNEK_DEVKIT_MVSIM_DEVICEREADER_H

#include "mvsim/model/StorageModel.h"
#include "mvsim/scenario/StrictObject.h"

namespace mvsim
{

// The id is read by the caller, who has to know which device is meant, and so is whether it is there.
void readDisk(StrictObject& object, Disk& disk);
void readVirtualDisk(StrictObject& object, VirtualDisk& drive);
// The last step of both: overwrites raw bytes. For a caller that sets numbers behind them.
void patchRecords(StrictObject& object, Disk& disk);
void patchRecords(StrictObject& object, VirtualDisk& drive);
// Without the lists of devices and the rules of calls.
void readAdapter(StrictObject& object, Adapter& adapter);
PendingEvent readEvent(StrictObject& object);

} // namespace mvsim

#endif
