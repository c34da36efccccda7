#include "zarnekctl/MonitorTextPrinter.h"

#include "zarnekctl/AlertTable.h"
#include "zarnekctl/MappingFile.h"
#include "zarnekctl/PropertyTable.h"
#include "zarnekctl/Text.h"

#include <cstdio>
#include <ctime>

namespace zarnekctl
{

namespace
{

constexpr const char* indent = "          "; // as wide as the time
constexpr std::size_t meaningWidth = 26;
constexpr std::size_t objectWidth = 30;

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

// How the object is now, where the change says so.
Health healthAfter(const Refresh& refresh)
{
    return refresh.kind == RefreshKind::Changed ? healthOf(refresh.object) : Health::Unknown;
}

} // namespace

void MonitorTextPrinter::start(const MonitorStart& start)
{
    m_out << "monitoring " << counted(start.controllers, "controller") << ", " << counted(start.disks, "disk")
          << ", " << counted(start.virtualDisks, "virtual disk") << " ("
          << escaped(start.source, !m_style.utf8) << "); a poll each " << shortNumber(start.interval)
          << " s, " << (start.polls == 0 ? std::string("until Ctrl-C") : counted(start.polls, "poll")) << '\n'
          << std::flush;
}

void MonitorTextPrinter::alert(const Alert& alert)
{
    const AlertRow* row = alertRow(alert.number);
    const Health severity = row == nullptr ? Health::Unknown : row->severity;
    m_out << timeOfDay(alert.time) << "  " << alert.number << "  "
          << m_style.coloured(padded(alert.meaning(), meaningWidth), severity) << "  ";
    if (alert.sequence)
        m_out << padded(alert.objectName(), objectWidth) << "  sequence " << *alert.sequence;
    else
        m_out << alert.objectName();
    m_out << '\n' << std::flush;
}

void MonitorTextPrinter::refresh(const Refresh& refresh)
{
    const Object& object = refresh.object;
    m_out << indent << object.fullName() << ": ";
    switch (refresh.kind) {
    case RefreshKind::Changed: {
        std::string text;
        for (const PropertyChange& change : refresh.changes)
            text += (text.empty() ? "" : ", ") + propertyLabel(change.id) + " " +
                    side(change.before, object.kind(), m_style) + " " + m_style.arrow() + " " +
                    side(change.after, object.kind(), m_style);
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
        m_out << "discovered singly, arrived without identity (" << object.properties.size()
              << " values); the data engine cannot place it";
        break;
    }
    m_out << '\n' << std::flush;
}

void MonitorTextPrinter::unchanged(std::size_t count)
{
    m_out << indent << counted(count, "object") << " discovered again without change\n" << std::flush;
}

void MonitorTextPrinter::summary(const MonitorSummary& summary)
{
    m_out << counted(summary.polls, "poll") << ", " << counted(summary.alerts, "alert") << ", "
          << counted(summary.refreshed, "object") << " discovered again (" << summary.changed << " changed, "
          << summary.incomplete << " without identity); ";
    if (summary.sequence == MappingFile::noNumber)
        m_out << "no sequence number in the mapping file\n";
    else
        m_out << "sequence number now " << summary.sequence << '\n';
    m_out << std::flush;
}

} // namespace zarnekctl
