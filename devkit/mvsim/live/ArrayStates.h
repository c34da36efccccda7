// What md's words for arrays and their members mean, in the codes of the vendor's records.
#ifndef ZARNEK_DEVKIT_MVSIM_ARRAYSTATES_H
#define ZARNEK_DEVKIT_MVSIM_ARRAYSTATES_H

#include "mvsim/live/MdArray.h"

namespace mvsim
{

// A container is only the home of other arrays, which name it behind a slash; a dash there keeps them from
// being changed.
bool isContainer(const MdArray& array);

// The RAID status of a member's disk, as far as this array goes.
std::uint8_t statusOf(const MdMember& member, const MdArray& array);

// The status of the virtual disk that an array is, with so many members missing.
std::uint8_t statusOf(const MdArray& array, std::uint64_t missing);

} // namespace mvsim

#endif
