// Notifications as lines of the trace.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_NOTIFICATIONTRACE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_NOTIFICATIONTRACE_H

#include "zarnekctl/host/Object.h"
#include "zarnekctl/host/Trace.h"

namespace zarnekctl
{

// The properties of a notification, those of the concerned object indented below it.
void traceNotification(Trace& trace, const Object& notification);

} // namespace zarnekctl

#endif
