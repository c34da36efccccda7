// The one simulator behind the C borders, with the sinks that see its calls and events.
#ifndef ZARNEK_DEVKIT_MVSIM_LIBRARY_H
#define ZARNEK_DEVKIT_MVSIM_LIBRARY_H

#include "mvsim/Simulator.h"
#include "mvsim/mvsim_control.h"

#include <string>

namespace mvsim
{

class Library
{
  public:
    static Library& instance();

    Simulator& simulator() { return simulator_; }

    void setCallSink(devkit_text_sink sink, void* context);
    void setEventSink(mvsim_event_sink sink, void* context);
    // A sink is called with its lock held and the simulator's free: it may ask the simulator, and once a sink
    // is taken back it is not called any more.
    void reportEvents(unsigned int adapter, const std::vector<_Event>& events);
    template <class Describe>
    void reportCall(Describe describe)
    {
        const std::lock_guard<std::mutex> lock(sinkMutex_);
        if (callSink_ != nullptr) {
            const std::string line = describe();
            callSink_(callContext_, line.c_str());
        }
    }

  private:
    Library();

    Simulator simulator_;
    std::mutex sinkMutex_;
    devkit_text_sink callSink_ = nullptr;
    void* callContext_ = nullptr;
    mvsim_event_sink eventSink_ = nullptr;
    void* eventContext_ = nullptr;
};

} // namespace mvsim

#endif
