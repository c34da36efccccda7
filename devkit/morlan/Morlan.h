// What the library holds as long as it is loaded.
#ifndef ZARNEK_DEVKIT_MORLAN_MORLAN_H
#define ZARNEK_DEVKIT_MORLAN_MORLAN_H

#include "common/FaultPlan.h"
#include "common/SinkSlot.h"
#include "common/devkit_hooks.h"
#include "common/guarded.h"
#include "morlan/EnvironmentSetting.h"
#include "morlan/InstallFolder.h"
#include "morlan/MutexTable.h"
#include "morlan/StringTable.h"
#include "morlan/ThreadTable.h"

#include <string>

namespace morlan
{

class Morlan
{
  public:
    // Status of a call that failed by itself.
    static constexpr int FAILED = 1;

    // Never destroyed: threads of the library and destructors of other ones may come after the exit handlers.
    static Morlan& instance();

    InstallFolder installFolder;
    EnvironmentSetting privateIni{"MORLAN_PRIVATE_INI"};
    devkit::FaultPlan faults;
    devkit::SinkSlot<devkit_text_sink> debugSink;
    devkit::SinkSlot<devkit_text_sink> callSink;
    ThreadTable threads;
    MutexTable mutexes;
    StringTable strings;

    // Counts a call and, unless it is to fail by plan, does it: `act()` tells whether that worked. A lack of
    // memory is a failure.
    template <class Act>
    int attempt(const char* call, Act act)
    {
        if (const auto fault = faults.enter(call))
            return *fault;
        return devkit::guarded(FAILED, [&act] { return act() ? 0 : FAILED; });
    }
    // The same for a call that gives a pointer, null where it fails.
    template <class Make>
    void* obtain(const char* call, Make make)
    {
        return faults.enter(call) ? nullptr : devkit::guarded<void*>(nullptr, make);
    }

    // Back to the state after load; objects and threads stay.
    void reset();

  private:
    Morlan();
};

} // namespace morlan

#endif
