// The program's own `sleep`: a library opened at run time finds it ahead of the C library's.
#include "common/devkit_hooks.h"
#include "zarnekctl/host/PollClock.h"

extern "C" DEVKIT_EXPORT unsigned int sleep(unsigned int seconds)
{
    return zarnekctl::PollClock::instance().pause(seconds);
}
