#include "zarnekctl/report/MonitorStory.h"

namespace zarnekctl
{

namespace
{

// A run goes on for months, and a page is to be read.
constexpr std::size_t REMEMBERED = 500;

} // namespace

void MonitorStory::add(const Alert& alert)
{
    ++alerts[alert.number];
    latest.push_back(alert);
    if (latest.size() > REMEMBERED)
        latest.pop_front();
}

std::size_t MonitorStory::alertCount() const
{
    std::size_t count = 0;
    for (const auto& [number, ofNumber] : alerts)
        count += ofNumber;
    return count;
}

} // namespace zarnekctl
