// Makes the story of a monitoring run out of what the libraries report one by one: joins alerts with the
// vendor's events, and the several insertions of one object with each other.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORJOURNAL_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORJOURNAL_H

#include "mvsim/api/mvsim_control.h"
#include "zarnekctl/config/MappingFile.h"
#include "zarnekctl/monitor/MonitorPrinter.h"

#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

namespace zarnekctl
{

// Safe from several threads.
class MonitorJournal
{
  public:
    // `mapping` reads the alert mapping file as it is at the moment; `printer` may be null to count only.
    MonitorJournal(MonitorPrinter* printer, std::function<std::optional<MappingFile>()> mapping);

    // An event on its way to the plug-in.
    void event(const mvsim_event& event);
    // An alert that the data engine received.
    void notification(const Object& object);
    // An object inserted or deleted; `before` and `after` are null as there was or is none.
    void change(const Object* before, const Object* after);
    void incomplete(const Object& object);
    // The poll is over: what is still open is told now, and its events are no longer waited for.
    void pollEnd();

    // Alerts and refreshed objects so far; polls and sequence number are left to the caller.
    MonitorSummary counts() const;

  private:
    // An object touched since the last alert, with its state ahead of the first touch.
    struct Touched {
        std::string identity;
        std::optional<Object> before;
        std::optional<Object> after;
    };

    void matchEvent(Alert& alert);
    void tellTouched();

    MonitorPrinter* m_printer;
    std::function<std::optional<MappingFile>()> m_mapping;
    mutable std::mutex m_mutex;
    std::deque<mvsim_event> m_events; // of this poll, not yet seen as an alert
    std::vector<Touched> m_touched;   // in the order of the first touch
    std::vector<Object> m_incomplete;
    MonitorSummary m_counts;
};

// What differs between two states of an object: the properties of `after` in their order, then those that
// went.
std::vector<PropertyChange> differences(const Object& before, const Object& after);

} // namespace zarnekctl

#endif
