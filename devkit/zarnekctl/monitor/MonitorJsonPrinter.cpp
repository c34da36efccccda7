#include "zarnekctl/monitor/MonitorJsonPrinter.h"

#include "common/Utf8.h"
#include "zarnekctl/monitor/AlertTable.h"
#include "zarnekctl/print/PropertyTable.h"
#include "zarnekctl/print/Units.h"
#include <zarnek_ini.h>

namespace zarnekctl
{

namespace
{

Json record(const char* kind)
{
    Json json;
    json["record"] = kind;
    json["format_version"] = JSON_FORMAT_VERSION;
    return json;
}

const char* refreshWord(RefreshKind kind)
{
    switch (kind) {
    case RefreshKind::Changed:
        return "changed";
    case RefreshKind::Appeared:
        return "appeared";
    case RefreshKind::Deleted:
        return "deleted";
    case RefreshKind::Incomplete:
        break;
    }
    return "incomplete";
}

template <typename Number>
Json orNull(const std::optional<Number>& number)
{
    return number ? Json(*number) : Json(nullptr);
}

Json sideJson(const std::optional<Property>& property, ObjectKind kind)
{
    return property ? propertyJson(*property, kind) : Json(nullptr);
}

} // namespace

void MonitorJsonPrinter::write(const Json& json)
{
    m_out << json.dump() << '\n' << std::flush;
}

void MonitorJsonPrinter::start(const MonitorStart& start)
{
    Json json = record("start");
    json["source"] = devkit::escaped(start.source);
    json["controllers"] = start.controllers;
    json["physical_disks"] = start.disks;
    json["virtual_disks"] = start.virtualDisks;
    json["interval"] = start.interval;
    json["polls"] = start.polls == 0 ? Json(nullptr) : Json(start.polls);
    write(json);
}

void MonitorJsonPrinter::alert(const Alert& alert)
{
    const AlertRow* row = alertRow(alert.number);
    Json json = record("alert");
    json["time"] = timeStamp(alert.time);
    json["number"] = alert.number;
    json["meaning"] = row == nullptr ? Json(nullptr) : Json(row->meaning);
    json["severity"] = severityWord(severityOf(alert.number));
    json["kind"] = jsonKind(alert.kind);
    json["name"] = alert.objectName();
    json["controller"] = alert.controller;
    json["controller_index"] = alert.controllerIndex;
    json["device"] = alert.kind == ObjectKind::Controller ? Json(nullptr) : Json(alert.device);
    json["sequence"] = orNull(alert.sequence);
    json["event_code"] = orNull(alert.eventCode);
    write(json);
}

void MonitorJsonPrinter::refresh(const Refresh& refresh)
{
    const Object& object = refresh.object;
    Json json = record("refresh");
    json["time"] = timeStamp(refresh.time);
    json["outcome"] = refreshWord(refresh.kind);
    json["kind"] = jsonKind(object.kind());
    json["name"] = object.fullName();
    json["identity"] = refresh.kind == RefreshKind::Incomplete ? Json(nullptr) : Json(object.identity);
    if (refresh.kind == RefreshKind::Changed) {
        json["changes"] = Json::object();
        for (const PropertyChange& change : refresh.changes)
            json["changes"][propertyName(change.id)] = {{"before", sideJson(change.before, object.kind())},
                                                        {"after", sideJson(change.after, object.kind())}};
    } else {
        json["properties"] = propertiesJson(object);
    }
    write(json);
}

void MonitorJsonPrinter::unchanged(std::size_t count)
{
    Json json = record("unchanged");
    json["objects"] = count;
    write(json);
}

void MonitorJsonPrinter::summary(const MonitorSummary& summary)
{
    Json json = record("summary");
    json["polls"] = summary.polls;
    json["alerts"] = summary.alerts;
    json["refreshed"] = summary.refreshed;
    json["changed"] = summary.changed;
    json["incomplete"] = summary.incomplete;
    json["sequence"] = summary.sequence == INI_NO_NUMBER ? Json(nullptr) : Json(summary.sequence);
    write(json);
}

} // namespace zarnekctl
