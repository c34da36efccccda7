// Whether tests that repeat themselves shall do so as often as docs/reliability.md tells, or seldom, to be
// quick.
#ifndef ZARNEK_TESTS_LONGFORM_H
#define ZARNEK_TESTS_LONGFORM_H

#include <cstdlib>

inline bool longForm()
{
    return std::getenv("ZARNEK_LONG") != nullptr;
}

inline unsigned int rounds(unsigned int quick, unsigned int all)
{
#ifdef ZARNEK_SANITIZED
    quick = (quick + 3) / 4; // such a program is slow
#endif
    return longForm() ? all : quick;
}

#endif
