#include "zarnekctl/host/EngineHost.h"

#include "common/text.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"
#include "zarnekctl/config/MappingFile.h"
#include "zarnekctl/config/PrivateIniCheck.h"
#include <zarnek.h>
#include <zarnek_ini.h>

#include <iostream>
#include <system_error>

namespace fs = std::filesystem;

namespace zarnekctl
{

namespace
{

void addToLog(void* context, const char* text)
{
    static_cast<DebugLog*>(context)->add(text);
}

void traceSupportCall(void* context, const char* text)
{
    static_cast<Trace*>(context)->line("sm", text);
}

void traceEngineCall(void* context, const char* text)
{
    static_cast<Trace*>(context)->line("ral", text);
}

void traceVendorCall(void* context, const char* text)
{
    static_cast<Trace*>(context)->line("mv", text);
}

// Threads that start meanwhile wait until this goes.
class ThreadHold
{
  public:
    ThreadHold() { morlan_hold_threads(1); }
    ~ThreadHold() { morlan_hold_threads(0); }
    ThreadHold(const ThreadHold&) = delete;
    ThreadHold& operator=(const ThreadHold&) = delete;
};

// The file itself, otherwise a shipped scenario of that name. Throws Failure (BadInput) when there is
// neither.
fs::path scenarioFile(const std::string& named, const Installation& installation)
{
    std::error_code error;
    if (fs::exists(named, error))
        return named;
    const bool isBareName = named.find('/') == std::string::npos;
    const auto shipped = isBareName ? installation.shippedScenario(named) : std::nullopt;
    if (shipped)
        return *shipped;
    std::string names;
    for (const std::string& name : installation.shippedScenarios())
        names += (names.empty() ? "; shipped are " : ", ") + name;
    throw Failure(ExitStatus::BadInput, named + ": no such scenario file" + names);
}

} // namespace

EngineHost::EngineHost(const Options& options, const Installation& installation, const ConfigFolder& config,
                       const std::string& defaultScenario)
    : m_trace(options.trace ? &std::cout : nullptr, config.path().string()), m_log(options.log, m_trace)
{
    morlan_set_install_path(config.path().c_str());
    morlan_set_private_ini(config.privateIni().c_str());
    morlan_set_debug_sink(addToLog, &m_log);
    const fs::path plugin = installation.plugin(options.plugin);
    m_plugin.emplace(plugin, m_trace);
    // The plug-in opens the vendor library by name at its first command, and then gets this one.
    m_vendorLibrary.emplace(vendorLibraryName(config.privateIni()), plugin.parent_path());
    chooseSource(options, installation, config, defaultScenario);
    if (m_trace.isOn())
        traceCalls();
}

EngineHost::SinkRelease::~SinkRelease()
{
    morlan_set_debug_sink(nullptr, nullptr);
    morlan_set_call_sink(nullptr, nullptr);
    ral_set_call_sink(nullptr, nullptr);
}

EngineHost::~EngineHost()
{
    if (m_vendorLibrary)
        m_vendorLibrary->setCallSink(nullptr, nullptr);
}

void EngineHost::chooseSource(const Options& options, const Installation& installation,
                              const ConfigFolder& config, const std::string& defaultScenario)
{
    // A real adapter's event numbers go on growing; so do those of the simulator from the number persisted.
    const std::uint32_t sequence = MappingFile::sequenceNumberIn(config.mapping());
    if (sequence != INI_NO_NUMBER)
        m_vendorLibrary->setSequenceBase(sequence);

    if (options.live) {
        const std::string sysfs = options.sysfs.value_or("/sys");
        m_vendorLibrary->playLive(sysfs, config.liveState());
        m_source = "live machine " + sysfs;
    } else if (options.scenario || m_vendorLibrary->isSimulator()) {
        const fs::path file = scenarioFile(options.scenario.value_or(defaultScenario), installation);
        if (!options.scenario)
            std::cerr << "zarnekctl: no source named, playing the scenario " << file.filename().string()
                      << "; see --scenario and --live\n";
        m_vendorLibrary->playScenario(file);
        m_source = "scenario " + file.filename().string();
        m_playsScenario = true;
    } else {
        m_source = "vendor library " + m_vendorLibrary->name();
    }
}

void EngineHost::traceCalls()
{
    morlan_set_call_sink(traceSupportCall, &m_trace);
    ral_set_call_sink(traceEngineCall, &m_trace);
    m_vendorLibrary->setCallSink(traceVendorCall, &m_trace);
}

void EngineHost::send(unsigned int command, void* input, void** output)
{
    const std::string intent = std::string("the plug-in failed to ") + commandWord(command);
    unsigned int status = ZARNEK_STATUS_DONE;
    try {
        status = m_plugin->command(command, input, output);
    } catch (const std::exception& exception) {
        throw Failure(ExitStatus::PluginFailed, intent + ", an exception came out of it: " + exception.what(),
                      m_log.lastLines());
    }
    if (status != ZARNEK_STATUS_DONE)
        throw Failure(ExitStatus::PluginFailed, intent + ", status " + std::to_string(status),
                      m_log.lastLines());
}

void EngineHost::initialise()
{
    // The plug-in answers with the number of its vendor layer in the slot itself.
    void* answer = nullptr;
    send(ZARNEK_CMD_INITIALIZE, nullptr, &answer);
}

void EngineHost::discover(unsigned int globalNumber)
{
    void* total = &m_controllersFound;
    send(ZARNEK_CMD_DISCOVER, &globalNumber, &total);
    m_refusedInDiscovery = takeRefusals();
}

void EngineHost::startMonitoring()
{
    // Plug-in and event thread log without a lock: the thread waits until the command has returned.
    const ThreadHold hold;
    send(ZARNEK_CMD_START_MONITORING);
    if (morlan_running_threads() == 0)
        throw Failure(ExitStatus::PluginFailed, "the plug-in started no event thread", m_log.lastLines());
}

void EngineHost::stopMonitoring()
{
    send(ZARNEK_CMD_STOP_MONITORING);
}

void EngineHost::terminate()
{
    send(ZARNEK_CMD_TERMINATE);
}

System EngineHost::system() const
{
    System system = readSystem();
    system.source = m_source;
    system.controllersFound = m_controllersFound;
    system.refusedCalls = m_refusedInDiscovery.count == 0 ? "" : describe(m_refusedInDiscovery);
    system.complete = !shortfallOf(system);
    return system;
}

void EngineHost::requireComplete(const System& system) const
{
    if (const auto shortfall = shortfallOf(system))
        throw Failure(*shortfall);
}

std::optional<Failure> EngineHost::shortfallOf(const System& system) const
{
    const std::string shortcoming = m_vendorLibrary->shortcoming();
    if (m_controllersFound == 0 && !shortcoming.empty())
        return Failure(ExitStatus::PluginFailed, shortcoming + "; install a complete one", m_log.lastLines());
    const std::size_t arrived = system.count(ObjectKind::Controller);
    if (arrived < m_controllersFound)
        return Failure(ExitStatus::PluginFailed,
                       "only " + std::to_string(arrived) + " of " +
                           devkit::counted(m_controllersFound, "controller") + " arrived in the data engine",
                       m_log.lastLines());
    if (!system.refusedCalls.empty())
        return Failure(ExitStatus::PluginFailed,
                       "the vendor library refused " + system.refusedCalls + "; what is shown is incomplete",
                       m_refusedInDiscovery.lastLines);
    return std::nullopt;
}

} // namespace zarnekctl
