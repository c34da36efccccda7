// What a monitoring run has come to so far, beside what the data engine holds.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORSTORY_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORSTORY_H

#include "zarnekctl/monitor/MonitorRecords.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>

namespace zarnekctl
{

struct MonitorStory {
    unsigned int polls = 0;
    std::size_t refusedCalls = 0;                // of the vendor library
    bool running = true;                         // more polls follow
    std::map<std::uint32_t, std::size_t> alerts; // how many of each number
    std::deque<Alert> latest;                    // of all of them, oldest first

    void add(const Alert& alert);
    std::size_t alertCount() const;
};

} // namespace zarnekctl

#endif
