// What md's levels mean: how an array spreads its data over its members, and how many it can do without.
#ifndef ZARNEK_DEVKIT_MVSIM_ARRAYLEVEL_H
#define ZARNEK_DEVKIT_MVSIM_ARRAYLEVEL_H

#include "mvsim/live/MdArray.h"

namespace mvsim
{

// The RaidMode of the vendor's records.
std::uint8_t raidModeOf(const MdArray& array);

// What the array holds, from the sizes of its members.
std::uint64_t dataKB(const MdArray& array);

// How many members are not there or not in sync; where the kernel keeps no count, as far as the members tell.
std::uint64_t missingMembers(const MdArray& array);

// Whether so many missing members take data with them. Where the places of those that are left are known,
// they decide; otherwise only what is lost in any case counts.
bool losesData(const MdArray& array, std::uint64_t missing);

} // namespace mvsim

#endif
