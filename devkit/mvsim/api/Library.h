// The one simulator behind the C borders, with the sinks that see its calls and events.
#ifndef ZARNEK_DEVKIT_MVSIM_LIBRARY_H
#define ZARNEK_DEVKIT_MVSIM_LIBRARY_H

#include "common/FaultPlan.h"
#include "common/SinkSlot.h"
#include "mvsim/api/Simulator.h"
#include "mvsim/api/mvsim_control.h"

namespace mvsim
{

struct Library {
    static Library& instance();

    Simulator simulator;
    devkit::FaultPlan faults;
    devkit::SinkSlot<devkit_text_sink> callSink;
    devkit::SinkSlot<mvsim_event_sink> eventSink;

  private:
    Library();
};

} // namespace mvsim

#endif
