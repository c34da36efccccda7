#include "zarnekctl/cli/Commands.h"

#include "ral/ral_inspect.h"
#include "zarnekctl/config/ConfigCheck.h"
#include "zarnekctl/host/EngineHost.h"
#include "zarnekctl/host/PollClock.h"
#include "zarnekctl/host/SdoReader.h"
#include "zarnekctl/host/StopSignals.h"
#include "zarnekctl/monitor/MonitorJournal.h"
#include "zarnekctl/monitor/MonitorJsonPrinter.h"
#include "zarnekctl/monitor/MonitorTextPrinter.h"
#include "zarnekctl/print/PropertyTable.h"

#include <exception>
#include <iostream>
#include <memory>

namespace zarnekctl
{

namespace
{

constexpr double scenarioInterval = 0.5; // seconds: the story is told while one looks on
constexpr double liveInterval = 50;
// How long a stop waits for the event thread to be between two polls; with the stop itself it stays below a
// second.
constexpr std::chrono::milliseconds patience{700};

// The properties of a notification, those of the concerned object indented below it.
void traceObject(Trace& trace, const Object& object, const std::string& indent)
{
    for (const Property& property : object.properties) {
        const std::string head = indent + propertyName(property.id) + " (" + std::to_string(property.id) +
                                 "/" + std::to_string(property.type) + ")";
        if (const auto* nested = std::get_if<Nested>(&property.value)) {
            trace.line("ntf", head);
            traceObject(trace, *nested->object, indent + "  ");
        } else {
            trace.line("ntf", head + " = " + describe(property, ObjectKind::Other, true));
        }
    }
}

// What the sinks are given: they run on the event thread.
struct Listener {
    MonitorJournal& journal;
    Trace& trace;

    static void onEvent(void* context, const mvsim_event* event)
    {
        static_cast<Listener*>(context)->journal.event(*event);
    }

    static void onNotification(void* context, const void* handle)
    {
        auto* self = static_cast<Listener*>(context);
        const Object object = readObject(handle);
        if (self->trace.isOn())
            traceObject(self->trace, object, "");
        self->journal.notification(object);
    }

    static void onChange(void* context, ral_change change, const void* before, const void* after)
    {
        MonitorJournal& journal = static_cast<Listener*>(context)->journal;
        if (change == RAL_CHANGE_INCOMPLETE) {
            journal.incomplete(readObject(after));
            return;
        }
        const Object old = readObject(before);
        const Object fresh = readObject(after);
        journal.change(before == nullptr ? nullptr : &old, after == nullptr ? nullptr : &fresh);
    }
};

// Connects a listener for as long as it lives.
class Connection
{
  public:
    Connection(Listener& listener, VendorLibrary& library) : m_library(library)
    {
        ral_set_notification_sink(Listener::onNotification, &listener);
        ral_set_change_sink(Listener::onChange, &listener);
        m_library.setEventSink(Listener::onEvent, &listener);
    }
    ~Connection()
    {
        ral_set_notification_sink(nullptr, nullptr);
        ral_set_change_sink(nullptr, nullptr);
        m_library.setEventSink(nullptr, nullptr);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

  private:
    VendorLibrary& m_library;
};

// The event thread's exceptions end the process; these are the last words.
[[noreturn]] void explainEnd()
{
    std::string reason = "no exception";
    if (const std::exception_ptr current = std::current_exception()) {
        try {
            std::rethrow_exception(current);
        } catch (const std::exception& exception) {
            reason = exception.what();
        } catch (...) {
            reason = "an exception of an unknown kind";
        }
    }
    std::cerr << "zarnekctl: an exception ended the process: " << reason
              << "; `zarnekctl check` tells whether the mapping file is the cause\n";
    std::abort();
}

std::unique_ptr<MonitorPrinter> printerFor(const Options& options)
{
    if (options.trace)
        return nullptr;
    if (options.format == OutputFormat::Json)
        return std::make_unique<MonitorJsonPrinter>(std::cout);
    return std::make_unique<MonitorTextPrinter>(std::cout, standardOutputStyle());
}

MonitorStart startRecord(const System& system, double interval, unsigned int polls)
{
    MonitorStart start;
    start.source = system.source;
    start.controllers = system.count(ObjectKind::Controller);
    start.disks = system.count(ObjectKind::PhysicalDisk);
    start.virtualDisks = system.count(ObjectKind::VirtualDisk);
    start.interval = interval;
    start.polls = polls;
    return start;
}

// Events that cannot be read would otherwise look like a quiet system.
void tellRefusals(EngineHost& host)
{
    const Refusals refusals = host.takeRefusals();
    if (refusals.count != 0)
        std::cerr << "zarnekctl: in poll " << PollClock::instance().polls() + 1 // the one that ends
                  << " the vendor library refused " << describe(refusals) << '\n';
}

// What an earlier run told counts as old by the number in the file, so one that did not get there matters.
void tellLostSequence(const MonitorSummary& summary, std::uint32_t initial, const ConfigFolder& config)
{
    if (summary.lastSequence > initial && summary.sequence != summary.lastSequence)
        std::cerr << "zarnekctl: " << config.mapping().string() << ": the sequence number "
                  << summary.lastSequence << " could not be written, so that the next run tells the same "
                  << "alerts again; make file and folder writable\n";
}

// From the start of monitoring to its stop. 25 goes out while the event thread sleeps: both threads log
// without a lock.
void poll(EngineHost& host, MonitorJournal& journal, const StopSignals& signals, double interval,
          unsigned int polls)
{
    PollClock& clock = PollClock::instance();
    const auto onPause = [&journal, &host](unsigned int seconds) {
        journal.pollEnd();
        tellRefusals(host);
        host.trace().line("sys", "sleep(" + std::to_string(seconds) + ")");
        if (!std::cout) // nobody reads it any more
            StopSignals::request();
    };
    clock.configure({PollClock::Duration(interval), polls, onPause, &StopSignals::request});
    host.startMonitoring();
    signals.wait();
    if (!clock.hold(patience))
        std::cerr << "zarnekctl: a poll is still under way; stopping all the same\n";
    host.stopMonitoring();
}

} // namespace

ExitStatus monitorCommand(const Options& options, const Installation& installation)
{
    const StopSignals signals;
    std::set_terminate(explainEnd);
    const ConfigFolder config(options.config);
    config.prepare(installation);
    const ConfigCheck check(config, installation.plugin(options.plugin).parent_path());
    check.refuse(Effect::NoMonitoring);
    for (const std::string& line : check.lines(Effect::Repetition))
        std::cerr << "zarnekctl: " << line << '\n';

    EngineHost host(options, installation, config, "disk-failure");
    const auto initial = MappingFile::read(config.mapping());
    const double interval = options.interval.value_or(host.playsScenario() ? scenarioInterval : liveInterval);
    const unsigned int lastPoll = host.vendorLibrary().lastPoll();
    const unsigned int polls = options.polls.value_or(host.playsScenario() ? lastPoll + 1 : 0);

    host.initialise();
    host.discover(options.globalNumber.value_or(0));
    const System system = host.system();
    const auto printer = printerFor(options);
    MonitorJournal journal(printer.get(), [&config] { return MappingFile::read(config.mapping()); });
    if (printer) {
        MonitorStart start = startRecord(system, interval, polls);
        start.isStill = host.playsScenario() && lastPoll == 0;
        printer->start(start);
    }
    if (system.count(ObjectKind::Controller) == 0) {
        host.stopMonitoring();
        host.terminate();
        host.requireComplete(system);
        std::cerr << "zarnekctl: there is no controller to monitor\n";
    } else {
        Listener listener{journal, host.trace()};
        const Connection connection(listener, host.vendorLibrary());
        poll(host, journal, signals, interval, polls);
        host.terminate();
    }

    MonitorSummary summary = journal.counts();
    summary.polls = PollClock::instance().polls();
    const auto mapping = MappingFile::read(config.mapping());
    summary.sequence = mapping ? mapping->sequenceNumber() : MappingFile::noNumber;
    if (printer)
        printer->summary(summary);
    tellLostSequence(summary, initial ? initial->sequenceNumber() : MappingFile::noNumber, config);
    host.requireComplete(system);
    return ExitStatus::Done;
}

} // namespace zarnekctl
