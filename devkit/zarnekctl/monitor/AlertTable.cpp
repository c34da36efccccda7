#include "zarnekctl/monitor/AlertTable.h"

namespace zarnekctl
{

namespace
{

constexpr AlertRow ROWS[] = {
    {2048, Health::Warning, "controller reports trouble"},
    {2049, Health::Warning, "disk removed"},
    {2050, Health::Critical, "disk failed"},
    {2051, Health::Warning, "disk reports media errors"},
    {2053, Health::Good, "virtual disk created"},
    {2054, Health::Good, "virtual disk deleted"},
    {2057, Health::Warning, "virtual disk degraded"},
    {2058, Health::Good, "configuration changed"},
    {2059, Health::Good, "check started"},
    {2064, Health::Good, "rebuild started"},
    {2065, Health::Good, "rebuild goes on"},
    {2073, Health::Critical, "virtual disk failed"},
    {2085, Health::Good, "properties changed"},
    {2086, Health::Good, "check completed"},
    {2088, Health::Good, "initialisation completed"},
    {2091, Health::Good, "rebuild completed"},
    {2092, Health::Good, "virtual disk recovered"},
    {2094, Health::Warning, "disk failure predicted"},
    {2098, Health::Good, "disk assigned as a spare"},
    {2099, Health::Warning, "spare takes over"},
    {2158, Health::Good, "disk inserted or online"},
};

} // namespace

const AlertRow* alertRow(std::uint32_t number)
{
    for (const AlertRow& row : ROWS)
        if (row.number == number)
            return &row;
    return nullptr;
}

devkit::Rows<AlertRow> alertRows()
{
    return ROWS;
}

Health severityOf(std::uint32_t number)
{
    const AlertRow* row = alertRow(number);
    return row == nullptr ? Health::Unknown : row->severity;
}

const char* severityWord(Health severity)
{
    switch (severity) {
    case Health::Good:
        return "info";
    case Health::Warning:
        return "warning";
    case Health::Critical:
        return "critical";
    case Health::Unknown:
        break;
    }
    return "unknown";
}

} // namespace zarnekctl
