// The stand-ins around the plug-in: as after load, with a configuration in a fresh folder. The private INI
// names the simulator, the mapping file holds the sequence number 0 and nothing else.
#ifndef ZARNEK_TESTS_STANDINS_H
#define ZARNEK_TESTS_STANDINS_H

#include "common/TempFolder.h"

#include <string>

class StandIns
{
  public:
    StandIns();
    StandIns(const StandIns&) = delete;
    StandIns& operator=(const StandIns&) = delete;
    ~StandIns();

    void writePrivateIni(const std::string& content) const;
    // Names another vendor library in the private INI, or another vendor too.
    void nameVendorLibrary(const std::string& name, const std::string& vendor = "9") const;
    void writeMapping(const std::string& content) const;
    std::string readMapping() const;

    // Gives the simulator a scenario: a file, a text, or the members of the one adapter of an else empty
    // system, and what stands beside the adapters.
    void loadScenario(const std::string& file) const;
    void loadScenarioText(const std::string& text) const;
    void loadAdapter(const std::string& members, const std::string& top = "",
                     unsigned int maxBufferKB = 64) const;

  private:
    TempFolder m_folder;
};

#endif
