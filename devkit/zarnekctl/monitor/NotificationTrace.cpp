#include "zarnekctl/monitor/NotificationTrace.h"

#include "zarnekctl/print/PropertyTable.h"

namespace zarnekctl
{

namespace
{

void traceObject(Trace& trace, const Object& object, const std::string& indent)
{
    for (const Property& property : object.properties) {
        const std::string head = indent + propertyName(property.id) + " (" + std::to_string(property.id) +
                                 "/" + std::to_string(property.type) + ")";
        if (const auto* nested = std::get_if<Nested>(&property.value)) {
            trace.line("ntf", head);
            traceObject(trace, *nested->object, indent + "  ");
        } else {
            trace.line("ntf", head + " = " + describe(property, ObjectKind::Other, true));
        }
    }
}

} // namespace

void traceNotification(Trace& trace, const Object& notification)
{
    if (trace.isOn())
        traceObject(trace, notification, "");
}

} // namespace zarnekctl
