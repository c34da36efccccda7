// What the library holds as long as it is loaded.
#ifndef ZARNEK_DEVKIT_MORLAN_MORLAN_H
#define ZARNEK_DEVKIT_MORLAN_MORLAN_H

#include "common/FaultPlan.h"
#include "common/SinkSlot.h"
#include "common/devkit_hooks.h"
#include "morlan/EnvironmentSetting.h"
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

    EnvironmentSetting installPath{"MORLAN_INSTALL_PATH"};
    EnvironmentSetting privateIni{"MORLAN_PRIVATE_INI"};
    devkit::FaultPlan faults;
    devkit::SinkSlot<devkit_text_sink> debugSink;
    devkit::SinkSlot<devkit_text_sink> callSink;
    ThreadTable threads;
    MutexTable mutexes;
    StringTable strings;

    // Back to the state after load; objects and threads stay.
    void reset();

  private:
    Morlan();
};

} // namespace morlan

#endif
