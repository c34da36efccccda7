#include "zarnekctl/monitor/MonitorConnection.h"

#include "zarnekctl/host/SdoReader.h"
#include "zarnekctl/monitor/NotificationTrace.h"

namespace zarnekctl
{

MonitorConnection::MonitorConnection(MonitorJournal& journal, Trace& trace, VendorLibrary& library)
    : m_journal(journal), m_trace(trace), m_library(library)
{
    ral_set_notification_sink(onNotification, this);
    ral_set_change_sink(onChange, this);
    m_library.setEventSink(onEvent, this);
}

MonitorConnection::~MonitorConnection()
{
    ral_set_notification_sink(nullptr, nullptr);
    ral_set_change_sink(nullptr, nullptr);
    m_library.setEventSink(nullptr, nullptr);
}

void MonitorConnection::onEvent(void* context, const mvsim_event* event)
{
    static_cast<MonitorConnection*>(context)->m_journal.event(*event);
}

void MonitorConnection::onNotification(void* context, const void* handle)
{
    auto* self = static_cast<MonitorConnection*>(context);
    const Object object = readObject(handle);
    traceNotification(self->m_trace, object);
    self->m_journal.notification(object);
}

void MonitorConnection::onChange(void* context, ral_change change, const void* before, const void* after)
{
    MonitorJournal& journal = static_cast<MonitorConnection*>(context)->m_journal;
    if (change == RAL_CHANGE_INCOMPLETE) {
        journal.incomplete(readObject(after));
        return;
    }
    const Object old = readObject(before);
    const Object fresh = readObject(after);
    journal.change(before == nullptr ? nullptr : &old, after == nullptr ? nullptr : &fresh);
}

} // namespace zarnekctl
