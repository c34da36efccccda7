// The stand-ins, configured as on a machine and with nobody listening: log text goes nowhere.
#ifndef ZARNEK_BENCH_MACHINE_H
#define ZARNEK_BENCH_MACHINE_H

#include "common/TempFolder.h"

#include <string>

class Machine
{
  public:
    // The simulator as the vendor's library, and the shipped alert mapping.
    Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;
    ~Machine();

    // Plays a system of one adapter, with so many disks and virtual disks alike.
    void loadSystem(unsigned int disks, unsigned int drives) const;
    std::string mappingFile() const { return m_folder.path("MarvelAlertMapping.ini"); }

  private:
    TempFolder m_folder;
};

#endif
