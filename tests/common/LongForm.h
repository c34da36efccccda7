// Whether tests that repeat themselves shall do so as often as docs/reliability.md tells, or seldom, to be
// quick.
#ifndef ZARNEK_TESTS_LONGFORM_H
#define ZARNEK_TESTS_LONGFORM_H

#include <cstdlib>

inline bool longForm()
{
    return std::getenv("ZARNEK_LONG") != nullptr;
}

#endif
