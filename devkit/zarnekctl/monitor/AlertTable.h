// What alert numbers mean, as the shipped alert mapping file gives them to events.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_ALERTTABLE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_ALERTTABLE_H

#include "zarnekctl/print/Health.h"

#include <cstdint>

namespace zarnekctl
{

struct AlertRow {
    std::uint32_t number;
    Health severity;
    const char* meaning;
};

// Null for a number that the table lacks.
const AlertRow* alertRow(std::uint32_t number);

} // namespace zarnekctl

#endif
