// Which objects of the data engine an alert makes stale.
#ifndef ZARNEK_EVENTS_ALERTACTION_H
#define ZARNEK_EVENTS_ALERTACTION_H

#include <algorithm>
#include <iterator>

namespace stg
{

// One discovery that an alert calls for. All but a controller's concern the devices of the alert's
// controller.
enum class AlertStep { None, OneDisk, AllDisks, AllDrives, Controller };

// The discoveries of one alert number, in the order in which they run.
struct AlertAction {
    unsigned int alert;
    AlertStep steps[2];
};

// The row of an alert number; null for one that makes nothing stale.
inline const AlertAction* actionOf(unsigned int alert)
{
    static constexpr AlertAction ROWS[] = {
        {2050, {AlertStep::OneDisk, AlertStep::AllDrives}},
        {2098, {AlertStep::OneDisk, AlertStep::AllDrives}},
        {2099, {AlertStep::OneDisk, AlertStep::AllDrives}},
        {2158, {AlertStep::OneDisk, AlertStep::AllDrives}},
        {2053, {AlertStep::AllDisks, AlertStep::AllDrives}},
        {2054, {AlertStep::AllDisks, AlertStep::AllDrives}},
        {2057, {AlertStep::AllDisks, AlertStep::AllDrives}},
        {2064, {AlertStep::AllDisks, AlertStep::AllDrives}},
        {2073, {AlertStep::AllDisks, AlertStep::AllDrives}},
        {2088, {AlertStep::AllDisks, AlertStep::AllDrives}},
        {2091, {AlertStep::AllDisks, AlertStep::AllDrives}},
        {2092, {AlertStep::AllDisks, AlertStep::AllDrives}},
        {2058, {AlertStep::Controller}},
        {2085, {AlertStep::Controller}},
    };
    const auto* const row = std::find_if(std::begin(ROWS), std::end(ROWS),
                                         [alert](const AlertAction& known) { return known.alert == alert; });
    return row == std::end(ROWS) ? nullptr : row;
}

} // namespace stg

#endif
