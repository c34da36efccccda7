#include "morlan/Morlan.h"

namespace morlan
{

namespace
{

// With the library itself, so that no call of it lacks the memory for this.
[[maybe_unused]] const Morlan& LOADED = Morlan::instance();

} // namespace

Morlan& Morlan::instance()
{
    static Morlan& library = *new Morlan;
    return library;
}

Morlan::Morlan()
    : faults{
          "DebugPrint",
          "SMMutexCreate",
          "SMMutexLock",
          "SMMutexUnLock",
          "SMMutexDestroy",
          "SMThreadStart",
          "SMThreadStop",
          "SMLibLoad",
          "SMLibUnLoad",
          "sm_create",
          "GetIniFilePath",
          "sm_strlen",
          "sm_destroy",
          "SSGetPrivateIniValue",
          "SMWriteINIPathFileValue",
          "SMSDOConfigAlloc",
          "SMSDOConfigFree",
          "SMSDOConfigClone",
          "SMSDOConfigAddData",
          "SMSDOConfigGetDataByID",
          "GetProperty2",
      }
{
}

void Morlan::reset()
{
    installFolder.reset();
    privateIni.reset();
    faults.reset();
    debugSink.set(nullptr, nullptr);
    callSink.set(nullptr, nullptr);
    threads.hold(false);
}

} // namespace morlan
