#include "zarnekctl/monitor/MonitorPrinters.h"

#include <algorithm>

namespace zarnekctl
{

void MonitorPrinters::start(const MonitorStart& start)
{
    for (const auto& printer : m_printers)
        printer->start(start);
}

void MonitorPrinters::alert(const Alert& alert)
{
    for (const auto& printer : m_printers)
        printer->alert(alert);
}

void MonitorPrinters::refresh(const Refresh& refresh)
{
    for (const auto& printer : m_printers)
        printer->refresh(refresh);
}

void MonitorPrinters::unchanged(std::size_t count)
{
    for (const auto& printer : m_printers)
        printer->unchanged(count);
}

void MonitorPrinters::summary(const MonitorSummary& summary)
{
    for (const auto& printer : m_printers)
        printer->summary(summary);
}

bool MonitorPrinters::wantsStates() const
{
    return std::any_of(m_printers.begin(), m_printers.end(),
                       [](const auto& printer) { return printer->wantsStates(); });
}

void MonitorPrinters::state(const MonitorState& state)
{
    for (const auto& printer : m_printers)
        if (printer->wantsStates())
            printer->state(state);
}

} // namespace zarnekctl
