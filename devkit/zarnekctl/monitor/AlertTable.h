// What alert numbers mean, as the shipped alert mapping file gives them to events.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_ALERTTABLE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_ALERTTABLE_H

#include "common/Rows.h"
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
devkit::Rows<AlertRow> alertRows();
// Unknown for a number that the table lacks.
Health severityOf(std::uint32_t number);
// "info", "warning", "critical", "unknown": stable, for JSON and metrics.
const char* severityWord(Health severity);

} // namespace zarnekctl

#endif
