// What alert numbers mean, as the shipped alert mapping file gives them to events.
#ifndef ZARNEKCTL_ALERT_TABLE_H
#define ZARNEKCTL_ALERT_TABLE_H

#include "zarnekctl/print/CodeWords.h"

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
