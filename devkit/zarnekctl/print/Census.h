// How many objects a system has, and how they are: what closes the tree and opens the report.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_CENSUS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_CENSUS_H

#include "zarnekctl/host/System.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zarnekctl
{

struct Census {
    std::string counts;                     // "1 controller, 2 disks, 1 virtual disk"
    std::size_t unknown = 0;                // objects of unknown status
    std::vector<const Object*> inAttention; // status warning or critical, in the order of the engine
    // Something came, nothing was refused, and each object arrived with all that names it: otherwise silence
    // says nothing.
    bool toldWhole = false;
};

// The objects of the census are those of the system.
Census censusOf(const System& system);

// Whether the object stands under no controller: it lost its parent, or came without an identity.
bool isLoose(const Node& node);
// "disk 7 on controller 0: arrived without an identity, with 3 values".
std::string looseText(const Node& node);

} // namespace zarnekctl

#endif
