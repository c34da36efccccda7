#include "zarnekctl/monitor/MonitorRun.h"

#include "zarnekctl/config/MappingFile.h"
#include "zarnekctl/host/PollClock.h"
#include "zarnekctl/monitor/MonitorConnection.h"

#include <iostream>

namespace zarnekctl
{

namespace
{

constexpr double SCENARIO_INTERVAL = 0.5; // seconds: the story is told while one looks on
constexpr double LIVE_INTERVAL = 50;
// How long a stop waits for the event thread to be between two polls; with the stop itself it stays below a
// second.
constexpr std::chrono::milliseconds PATIENCE{700};

} // namespace

MonitorRun::MonitorRun(EngineHost& host, const ConfigFolder& config, const Options& options,
                       MonitorPrinter* printer)
    : m_host(host), m_config(config), m_printer(printer),
      m_journal(printer, [&config] { return MappingFile::read(config.mapping()); }),
      m_initialSequence(MappingFile::sequenceNumberIn(config.mapping())),
      m_globalNumber(options.globalNumber.value_or(0)),
      m_interval(options.interval.value_or(host.playsScenario() ? SCENARIO_INTERVAL : LIVE_INTERVAL)),
      m_polls(options.polls.value_or(host.playsScenario() ? host.vendorLibrary().lastPoll() + 1 : 0))
{
}

void MonitorRun::run(const StopSignals& signals)
{
    m_host.initialise();
    m_host.discover(m_globalNumber);
    const System system = m_host.system();
    tellStart(system);
    tellState(0, system.count(ObjectKind::Controller) != 0);
    if (system.count(ObjectKind::Controller) == 0) {
        m_host.stopMonitoring();
        m_host.terminate();
        m_host.requireComplete(system);
        std::cerr << "zarnekctl: there is no controller to monitor\n";
    } else {
        const MonitorConnection connection(m_journal, m_host.trace(), m_host.vendorLibrary());
        poll(signals);
        m_host.terminate();
    }
    tellState(PollClock::instance().polls(), false);
    tellEnd();
    m_host.requireComplete(system);
}

void MonitorRun::tellStart(const System& system)
{
    if (m_printer == nullptr)
        return;
    MonitorStart start;
    start.source = system.source;
    start.controllers = system.count(ObjectKind::Controller);
    start.disks = system.count(ObjectKind::PhysicalDisk);
    start.virtualDisks = system.count(ObjectKind::VirtualDisk);
    start.interval = m_interval;
    start.polls = m_polls;
    start.isStill = m_host.playsScenario() && m_host.vendorLibrary().lastPoll() == 0;
    m_printer->start(start);
}

// The stop goes out while the event thread sleeps: both threads log without a lock.
void MonitorRun::poll(const StopSignals& signals)
{
    PollClock& clock = PollClock::instance();
    clock.configure({PollClock::Duration(m_interval), m_polls,
                     [this](unsigned int seconds) { endPoll(seconds); }, &StopSignals::request});
    m_host.startMonitoring();
    signals.wait();
    if (!clock.hold(PATIENCE))
        std::cerr << "zarnekctl: a poll is still under way; stopping all the same\n";
    m_host.stopMonitoring();
}

// Runs on the event thread.
void MonitorRun::endPoll(unsigned int seconds)
{
    m_journal.pollEnd();
    // Events that cannot be read would otherwise look like a quiet system.
    const Refusals refusals = m_host.takeRefusals();
    m_refusedCalls += refusals.count;
    const unsigned int polls = PollClock::instance().polls() + 1; // with the one that ends
    if (refusals.count != 0)
        std::cerr << "zarnekctl: in poll " << polls << " the vendor library refused " << describe(refusals)
                  << '\n';
    tellState(polls, true);
    m_host.trace().line("sys", "sleep(" + std::to_string(seconds) + ")");
    if (!std::cout) // nobody reads it any more
        StopSignals::request();
}

void MonitorRun::tellState(unsigned int polls, bool running)
{
    if (m_printer != nullptr && m_printer->wantsStates())
        m_printer->state({m_host.system(), polls, m_refusedCalls, running});
}

void MonitorRun::tellEnd()
{
    MonitorSummary summary = m_journal.counts();
    summary.polls = PollClock::instance().polls();
    summary.sequence = MappingFile::sequenceNumberIn(m_config.mapping());
    if (m_printer != nullptr)
        m_printer->summary(summary);
    // What an earlier run told counts as old by the number in the file, so one that did not get there
    // matters.
    if (summary.lastSequence > m_initialSequence && summary.sequence != summary.lastSequence)
        std::cerr << "zarnekctl: " << m_config.mapping().string() << ": the sequence number "
                  << summary.lastSequence << " could not be written, so that the next run tells the same "
                  << "alerts again; make file and folder writable, and leave them in their place\n";
}

} // namespace zarnekctl
