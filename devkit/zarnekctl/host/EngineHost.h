// The data engine's side of a run: points the support library at the configuration, opens plug-in and
// vendor library, gathers what all of them say, and sends the control commands.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_ENGINEHOST_H
#define ZARNEK_DEVKIT_ZARNEKCTL_ENGINEHOST_H

#include "zarnekctl/config/ConfigFolder.h"
#include "zarnekctl/config/Failure.h"
#include "zarnekctl/config/Installation.h"
#include "zarnekctl/config/Options.h"
#include "zarnekctl/host/DebugLog.h"
#include "zarnekctl/host/Plugin.h"
#include "zarnekctl/host/System.h"
#include "zarnekctl/host/Trace.h"
#include "zarnekctl/host/VendorLibrary.h"

#include <optional>
#include <string>

namespace zarnekctl
{

// One at a time in a process: the libraries have one set of sinks. Lives on the main thread; its sinks run on
// the event thread too.
class EngineHost
{
  public:
    // `defaultScenario` is played when the options name no source. Throws Failure.
    EngineHost(const Options& options, const Installation& installation, const ConfigFolder& config,
               const std::string& defaultScenario);
    ~EngineHost();
    EngineHost(const EngineHost&) = delete;
    EngineHost& operator=(const EngineHost&) = delete;

    // The commands throw Failure (PluginFailed) when the plug-in refuses or fails.
    void initialise();
    // Discovers, numbering controllers from `globalNumber`.
    void discover(unsigned int globalNumber);
    void startMonitoring();
    void stopMonitoring();
    void terminate();

    // What the data engine holds now, with source, controller count and what the discovery lacks.
    System system() const;
    // Throws Failure (PluginFailed) when something that the vendor library has cannot be in `system`.
    void requireComplete(const System& system) const;
    // What the vendor library refused since the discovery or the last look.
    Refusals takeRefusals() { return m_log.takeRefusals(); }

    Trace& trace() { return m_trace; }
    const DebugLog& log() const { return m_log; }
    VendorLibrary& vendorLibrary() { return *m_vendorLibrary; }
    bool playsScenario() const { return m_playsScenario; }

  private:
    void chooseSource(const Options& options, const Installation& installation, const ConfigFolder& config,
                      const std::string& defaultScenario);
    void traceCalls();
    void send(unsigned int command, void* input = nullptr, void** output = nullptr);
    // Why something that the vendor library has cannot be in `system`; nothing where all can.
    std::optional<Failure> shortfallOf(const System& system) const;

    // Takes the libraries' sinks away again, also from a host whose construction failed.
    struct SinkRelease {
        SinkRelease() = default;
        ~SinkRelease();
        SinkRelease(const SinkRelease&) = delete;
        SinkRelease& operator=(const SinkRelease&) = delete;
    };

    Trace m_trace;
    DebugLog m_log;
    SinkRelease m_sinks;
    std::optional<Plugin> m_plugin;
    std::optional<VendorLibrary> m_vendorLibrary;
    std::string m_source;
    bool m_playsScenario = false;
    unsigned int m_controllersFound = 0;
    Refusals m_refusedInDiscovery;
};

} // namespace zarnekctl

#endif
