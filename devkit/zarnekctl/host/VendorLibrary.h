// The vendor library of a run, opened ahead of the plug-in so that, where it is the simulator, it can be told
// what to play.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_VENDORLIBRARY_H
#define ZARNEK_DEVKIT_ZARNEKCTL_VENDORLIBRARY_H

#include "mvsim/api/mvsim_control.h"
#include "zarnekctl/config/PrivateIniCheck.h"

#include <filesystem>
#include <string>

namespace zarnekctl
{

class VendorLibrary
{
  public:
    // Opens `name` + ".so" in the folder, or, where it is not there, wherever the loader finds it; it stays
    // open until the process ends. Throws Failure (BadInput).
    VendorLibrary(const std::string& name, const std::filesystem::path& folder);

    // Opens any library in that way and gives its shortcoming.
    static LibraryProbe probeIn(const std::filesystem::path& folder);

    const std::string& name() const { return m_name; }
    bool isSimulator() const { return m_loadScenario != nullptr; }
    // Why the plug-in finds nothing through it: it cannot be asked for the number of adapters. Empty when it
    // can.
    std::string shortcoming() const;

    // These throw Failure (BadInput) when the simulator refuses, or the library is no simulator.
    void playScenario(const std::filesystem::path& file);
    void playLive(const std::filesystem::path& sysfs, const std::filesystem::path& stateFile);

    // Without a simulator these do nothing.
    void setSequenceBase(unsigned int sequence);
    void setCallSink(devkit_text_sink sink, void* context);
    void setEventSink(mvsim_event_sink sink, void* context);
    // 0 without a simulator.
    unsigned int lastPoll() const;

  private:
    void requireSimulator() const;

    std::string m_name;
    bool m_canCountAdapters = false;
    decltype(&mvsim_load_scenario) m_loadScenario = nullptr;
    decltype(&mvsim_load_live) m_loadLive = nullptr;
    decltype(&mvsim_set_sequence_base) m_setSequenceBase = nullptr;
    decltype(&mvsim_set_call_sink) m_setCallSink = nullptr;
    decltype(&mvsim_set_event_sink) m_setEventSink = nullptr;
    decltype(&mvsim_last_poll) m_lastPoll = nullptr;
};

} // namespace zarnekctl

#endif
