#include "zarnekctl/monitor/MonitorTextPrinter.h"

#include "common/Utf8.h"
#include "common/text.h"
#include "zarnekctl/monitor/AlertTable.h"
#include "zarnekctl/print/PropertyTable.h"
#include <sdo.h>
#include <zarnek_ini.h>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace zarnekctl
{

namespace
{

constexpr const char* INDENT = "          "; // as wide as the time
constexpr std::size_t MEANING_WIDTH = 26;
constexpr std::size_t OBJECT_WIDTH = 30;

std::string timeOfDay(WallClock::time_point time)
{
    const std::time_t seconds = WallClock::to_time_t(time);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", parts.tm_hour, parts.tm_min, parts.tm_sec);
    return text;
}

std::string shortNumber(double number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%g", number);
    return text;
}

std::string side(const std::optional<Property>& property, ObjectKind kind, const Style& style)
{
    return property ? describe(*property, kind, !style.utf8) : "nothing";
}

// The bare number, with its unit where it has one.
std::string exactText(std::uint64_t number, unsigned int property)
{
    const PropertyRow* row = propertyRow(property);
    return std::to_string(number) + (row != nullptr && row->form == Form::Size ? " B" : "");
}

// "state online -> failed"; where the words cannot tell the difference, the numbers do.
std::string changeText(const PropertyChange& change, ObjectKind kind, const Style& style)
{
    std::string before = side(change.before, kind, style);
    std::string after = side(change.after, kind, style);
    if (before == after && change.before && change.after) {
        const auto* old = std::get_if<std::uint64_t>(&change.before->value);
        const auto* fresh = std::get_if<std::uint64_t>(&change.after->value);
        if (old != nullptr && fresh != nullptr) {
            before = exactText(*old, change.id);
            after = exactText(*fresh, change.id);
        }
    }
    return propertyLabel(change.id) + " " + before + " " + style.arrow() + " " + after;
}

// State and status ahead of all else.
bool isCondition(const PropertyChange& change)
{
    return change.id == SSPROP_STATE_U32 || change.id == SSPROP_STATUS_U32;
}

// How the object is now, where the change says so.
Health healthAfter(const Refresh& refresh)
{
    return refresh.kind == RefreshKind::Changed ? healthOf(refresh.object) : Health::Unknown;
}

} // namespace

void MonitorTextPrinter::start(const MonitorStart& start)
{
    m_out << "monitoring " << devkit::counted(start.controllers, "controller") << ", "
          << devkit::counted(start.disks, "disk") << ", "
          << devkit::counted(start.virtualDisks, "virtual disk") << " ("
          << devkit::escaped(start.source, !m_style.utf8) << "); a poll every " << shortNumber(start.interval)
          << " s, " << (start.polls == 0 ? std::string("until Ctrl-C") : devkit::counted(start.polls, "poll"))
          << (start.isStill ? "; the scenario has no timeline, so nothing will happen\n" : "\n")
          << std::flush;
}

void MonitorTextPrinter::alert(const Alert& alert)
{
    m_out << timeOfDay(alert.time) << "  " << alert.number << "  "
          << m_style.coloured(devkit::padded(alert.meaning(), MEANING_WIDTH), severityOf(alert.number))
          << "  ";
    if (alert.sequence)
        m_out << devkit::padded(alert.objectName(), OBJECT_WIDTH) << "  sequence " << *alert.sequence;
    else
        m_out << alert.objectName();
    m_out << '\n' << std::flush;
}

void MonitorTextPrinter::refresh(const Refresh& refresh)
{
    const Object& object = refresh.object;
    m_out << INDENT << object.fullName() << ": ";
    switch (refresh.kind) {
    case RefreshKind::Changed: {
        auto changes = refresh.changes;
        std::stable_partition(changes.begin(), changes.end(), isCondition);
        std::string text;
        for (const PropertyChange& change : changes)
            text += (text.empty() ? "" : ", ") + changeText(change, object.kind(), m_style);
        m_out << m_style.coloured(text, healthAfter(refresh));
        break;
    }
    case RefreshKind::Appeared:
        m_out << "new in the data engine";
        break;
    case RefreshKind::Deleted:
        m_out << "gone from the data engine";
        break;
    case RefreshKind::Incomplete:
        if (object.properties.empty())
            m_out << "arrived without a value: the vendor library told of it and did not describe it";
        else
            m_out << "refreshed singly, as " << devkit::counted(object.properties.size(), "value")
                  << " without identity; its full object waits for a discovery of all "
                  << wordOf(object.apparentKind()) << 's';
        break;
    }
    m_out << '\n' << std::flush;
}

void MonitorTextPrinter::unchanged(std::size_t count)
{
    m_out << INDENT << devkit::counted(count, "object") << " discovered again without change\n" << std::flush;
}

void MonitorTextPrinter::summary(const MonitorSummary& summary)
{
    m_out << devkit::counted(summary.polls, "poll") << ", " << devkit::counted(summary.alerts, "alert")
          << ", " << devkit::counted(summary.refreshed, "object") << " discovered again (" << summary.changed
          << " changed, " << summary.incomplete << " without identity); ";
    if (summary.sequence == INI_NO_NUMBER)
        m_out << "no sequence number in the mapping file\n";
    else
        m_out << "sequence number now " << summary.sequence << '\n';
    m_out << std::flush;
}

} // namespace zarnekctl
