// The data engine's alert numbers: which are valid, and which make objects stale.
#ifndef ZARNEK_EVENTS_ALERTNUMBER_H
#define ZARNEK_EVENTS_ALERTNUMBER_H

#include <algorithm>
#include <iterator>

namespace stg
{

// A lower number in the mapping file counts as no mapping.
constexpr unsigned int FIRST_ALERT_NUMBER = 2048;

// What to discover again after an alert.
enum class AlertAction { None, OneDiskAndDrives, DisksAndDrives, Controller };

inline AlertAction actionOf(unsigned int alert)
{
    struct Row {
        unsigned int alert;
        AlertAction action;
    };
    static constexpr Row ROWS[] = {
        {2050, AlertAction::OneDiskAndDrives}, {2098, AlertAction::OneDiskAndDrives},
        {2099, AlertAction::OneDiskAndDrives}, {2158, AlertAction::OneDiskAndDrives},
        {2053, AlertAction::DisksAndDrives},   {2054, AlertAction::DisksAndDrives},
        {2057, AlertAction::DisksAndDrives},   {2064, AlertAction::DisksAndDrives},
        {2073, AlertAction::DisksAndDrives},   {2088, AlertAction::DisksAndDrives},
        {2091, AlertAction::DisksAndDrives},   {2092, AlertAction::DisksAndDrives},
        {2058, AlertAction::Controller},       {2085, AlertAction::Controller},
    };
    const auto* const row =
        std::find_if(std::begin(ROWS), std::end(ROWS), [alert](const Row& r) { return r.alert == alert; });
    return row == std::end(ROWS) ? AlertAction::None : row->action;
}

} // namespace stg

#endif
