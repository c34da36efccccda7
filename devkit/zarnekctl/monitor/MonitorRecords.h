// What a monitoring run tells, as plain values.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORRECORDS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORRECORDS_H

#include "zarnekctl/host/System.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zarnekctl
{

using WallClock = std::chrono::system_clock;

struct MonitorStart {
    std::string source;
    std::size_t controllers = 0;
    std::size_t disks = 0;
    std::size_t virtualDisks = 0;
    double interval = 0;    // seconds
    unsigned int polls = 0; // 0: until stopped
    bool isStill = false;   // a scenario in which nothing happens
};

struct Alert {
    WallClock::time_point time;
    std::uint32_t number = 0;
    ObjectKind kind = ObjectKind::Other; // of the object concerned
    std::uint64_t controller = 0;        // global number
    std::uint64_t controllerIndex = 0;   // the vendor's
    std::uint64_t device = 0;            // slot or logical drive; not for a controller
    std::optional<std::uint32_t> sequence;
    std::optional<std::uint32_t> eventCode; // the vendor's

    std::string objectName() const; // "disk 3 on controller 0"
    // "alert 4711" for a number that the table of meanings lacks.
    std::string meaning() const;
};

// A property that differs; a side is absent where the object lacks the property.
struct PropertyChange {
    unsigned int id = 0;
    std::optional<Property> before;
    std::optional<Property> after;
};

enum class RefreshKind {
    Changed,
    Appeared,
    Deleted,
    Incomplete // arrived without an identity
};

// An object that was discovered again.
struct Refresh {
    WallClock::time_point time;
    RefreshKind kind = RefreshKind::Changed;
    Object object;                       // as it is now; as it was for a deleted one
    std::vector<PropertyChange> changes; // for a changed one, in the order of the engine
};

// How things stand between two polls.
struct MonitorState {
    System system; // what the data engine holds now
    unsigned int polls = 0;
    std::size_t refusedCalls = 0; // of the vendor library, in all polls
    bool running = true;          // more polls follow
};

struct MonitorSummary {
    unsigned int polls = 0;
    std::size_t alerts = 0;
    std::size_t refreshed = 0; // objects discovered again, with and without a change
    std::size_t changed = 0;   // of these, with one
    std::size_t incomplete = 0;
    std::uint32_t lastSequence = 0; // of the last alert; 0 when none is known
    std::uint32_t sequence = 0;     // in the mapping file now; INI_NO_NUMBER when there is none
};

} // namespace zarnekctl

#endif
