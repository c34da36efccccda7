// Keeps a lack of memory, and whatever else is thrown, from leaving a function that C calls.
#ifndef ZARNEK_DEVKIT_COMMON_GUARDED_H
#define ZARNEK_DEVKIT_COMMON_GUARDED_H

#include <exception>

namespace devkit
{

// What `act()` returns, or `failed` when it throws. The unwinding of a thread that ends itself goes on.
template <class Result, class Act>
Result guarded(Result failed, Act act)
{
    try {
        return act();
    } catch (const std::exception&) {
        return failed;
    }
}

// For what may be left undone, such as a line for a sink that finds no memory.
template <class Act>
void guarded(Act act)
{
    guarded(false, [&act] {
        act();
        return true;
    });
}

} // namespace devkit

#endif
