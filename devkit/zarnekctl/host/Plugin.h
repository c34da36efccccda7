// The plug-in, loaded as a data engine loads it, and its one door.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_PLUGIN_H
#define ZARNEK_DEVKIT_ZARNEKCTL_PLUGIN_H

#include "zarnekctl/host/Trace.h"
#include <zarnek.h>

#include <filesystem>

namespace zarnekctl
{

class Plugin
{
  public:
    // Opens the file; it stays open until the process ends. Throws Failure (BadInput). `trace` outlives it.
    Plugin(const std::filesystem::path& file, Trace& trace);

    // Sends one of the ZARNEK_CMD numbers. The status that the plug-in gave; an exception that comes out of
    // it passes on.
    unsigned int command(unsigned int number, void* input, void** output);

  private:
    Trace& m_trace;
    ZARNEK_Entry_t m_entry = nullptr;
};

// "initialise"; for the commands that the host sends.
const char* commandWord(unsigned int number);

} // namespace zarnekctl

#endif
