// morlan.h for the sources that define its functions: with it they are visible outside the library.
#ifndef ZARNEK_DEVKIT_MORLAN_EXPORTED_CALLS_H
#define ZARNEK_DEVKIT_MORLAN_EXPORTED_CALLS_H

#pragma GCC visibility push(default)
#include <morlan.h>
#pragma GCC visibility pop

#endif
