// Tells disks apart that say the same of themselves: copies of a virtual disk, or two paths to a real one.
#ifndef ZARNEK_DEVKIT_MVSIM_TWINBOOK_H
#define ZARNEK_DEVKIT_MVSIM_TWINBOOK_H

#include "mvsim/live/SeenMachine.h"

#include <map>
#include <string>
#include <vector>

namespace mvsim
{

class TwinBook
{
  public:
    // Makes the identities of one look at the machine differ. A twin keeps its identity as long as it keeps
    // its name; one with a new name takes over that of a twin which is gone.
    void tellApart(std::vector<SeenDisk>& disks);

  private:
    struct Twin {
        std::string name; // that it had when it was last seen
        bool present;
    };
    std::map<std::string, std::vector<Twin>> m_twins;
};

} // namespace mvsim

#endif
