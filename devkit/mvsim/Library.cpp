#include "mvsim/Library.h"

#include "mvsim/SourceChoice.h"

namespace mvsim
{

Library::Library() : simulator_(&environmentSource) {}

Library& Library::instance()
{
    static Library library;
    return library;
}

void Library::setCallSink(devkit_text_sink sink, void* context)
{
    const std::lock_guard<std::mutex> lock(sinkMutex_);
    callSink_ = sink;
    callContext_ = context;
}

void Library::setEventSink(mvsim_event_sink sink, void* context)
{
    const std::lock_guard<std::mutex> lock(sinkMutex_);
    eventSink_ = sink;
    eventContext_ = context;
}

void Library::reportEvents(unsigned int adapter, const std::vector<_Event>& events)
{
    const std::lock_guard<std::mutex> lock(sinkMutex_);
    if (eventSink_ == nullptr) {
        return;
    }
    for (const _Event& event : events) {
        const mvsim_event seen{adapter, event.EventClass, event.EventCode, event.EventDeviceId,
                               event.EventSequence};
        eventSink_(eventContext_, &seen);
    }
}

} // namespace mvsim
