// The plug-in, loaded as a data engine loads it, and its one door.
#ifndef ZARNEKCTL_PLUGIN_H
#define ZARNEKCTL_PLUGIN_H

#include "zarnekctl/host/Trace.h"

#include <filesystem>

namespace zarnekctl
{

enum class ControlCommand : unsigned int {
    Initialise = 20,
    StartMonitoring = 21,
    Discover = 22,
    Terminate = 23,
    StopMonitoring = 25
};

class Plugin
{
  public:
    // Opens the file; it stays open until the process ends. Throws Failure (BadInput). `trace` outlives it.
    Plugin(const std::filesystem::path& file, Trace& trace);

    // The status that the plug-in gave; an exception that comes out of it passes on.
    unsigned int command(ControlCommand command, void* input = nullptr, void** output = nullptr);

  private:
    using Entry = unsigned int (*)(unsigned int command, void* input, void** output);

    Trace& m_trace;
    Entry m_entry = nullptr;
};

const char* wordOf(ControlCommand command);

} // namespace zarnekctl

#endif
