// Which virtual disks md arrays are, and what they make of the machine's disks. Looks at nothing but its
// arguments; what md's words mean stands in ArrayStates.h.
#ifndef ZARNEK_DEVKIT_MVSIM_ARRAYJUDGE_H
#define ZARNEK_DEVKIT_MVSIM_ARRAYJUDGE_H

#include "mvsim/live/MdArray.h"
#include "mvsim/live/SeenMachine.h"

namespace mvsim
{

// The machine of these disks and of those among `arrays` that hold data. The disks come as if they were in no
// array, and get the RAID status that their part in arrays gives them, and their free space.
SeenMachine judgeArrays(std::vector<SeenDisk> disks, const std::vector<MdArray>& arrays);

} // namespace mvsim

#endif
