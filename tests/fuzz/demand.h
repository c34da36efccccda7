// What has to hold for every input: if it does not, the input is a finding.
#ifndef ZARNEK_TESTS_DEMAND_H
#define ZARNEK_TESTS_DEMAND_H

#include <cstdio>
#include <cstdlib>

inline void demand(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

#endif
