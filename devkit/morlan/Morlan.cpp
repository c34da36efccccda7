#include "morlan/Morlan.h"

namespace morlan
{

Morlan& Morlan::instance()
{
    static Morlan& library = *new Morlan;
    return library;
}

Morlan::Morlan()
    : faults{
          {"DebugPrint", false},
          {"SMMutexCreate", true},
          {"SMMutexLock", true},
          {"SMMutexUnLock", true},
          {"SMMutexDestroy", true},
          {"SMThreadStart", true},
          {"SMThreadStop", true},
          {"SMLibLoad", true},
          {"SMLibUnLoad", true},
          {"sm_create", true},
          {"GetIniFilePath", true},
          {"sm_strlen", false},
          {"sm_destroy", false},
          {"SSGetPrivateIniValue", true},
          {"SMWriteINIPathFileValue", true},
          {"SMSDOConfigAlloc", true},
          {"SMSDOConfigFree", true},
          {"SMSDOConfigClone", true},
          {"SMSDOConfigAddData", true},
          {"SMSDOConfigGetDataByID", true},
          {"GetProperty2", true},
      }
{
}

void Morlan::reset()
{
    installPath.reset();
    privateIni.reset();
    faults.reset();
    debugSink.set(nullptr, nullptr);
    callSink.set(nullptr, nullptr);
    threads.hold(false);
}

} // namespace morlan
