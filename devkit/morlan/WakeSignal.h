// Wakes a thread that sleeps in the C library: a real-time signal that nobody else uses, with a handler that
// does nothing. An interrupted sleep ends, other system calls are restarted. Not synchronised.
#ifndef ZARNEK_DEVKIT_MORLAN_WAKESIGNAL_H
#define ZARNEK_DEVKIT_MORLAN_WAKESIGNAL_H

#include <pthread.h>

namespace morlan
{

class WakeSignal
{
  public:
    // Chooses a signal whose disposition is the default one and takes it; later calls look whether it is
    // still ours, and choose another if the process has found a use for it. False when none is free.
    bool acquire();
    // The calling thread lets the signal through. Does nothing when no signal was acquired.
    void unblockHere() const;
    // `thread` is not joined yet. Requires that acquire() just succeeded.
    void send(pthread_t thread) const;

  private:
    int m_number = 0;
};

} // namespace morlan

#endif
