#ifndef ZARNEK_ENTRY_LIBPLD_SM_ZARNEK_ENTRY_H
#define ZARNEK_ENTRY_LIBPLD_SM_ZARNEK_ENTRY_H

// The plug-in's only exported function. Runs a control command on the calling thread, one at a time, and
// returns its status: 0 done, 1 initialisation failed, 2052 not supported.
//
//   20 initialise  on success *output becomes the vendor layer number 9 (the number itself, not a pointer)
//   22 discover    input points to the first global controller number (unsigned int), *output to an unsigned
//                  int that receives the running total of controllers
//   21 start monitoring, 25 stop monitoring, 23 terminate; 26, 27 and 29 do nothing
//
// Commands 20 and 22 follow these pointers without a test. The expected order is 20, 22, 21, 25, 23.
//
// Exceptions of the standard library leave the function: std::out_of_range from command 22 when a line of
// MarvelAlertMapping.ini ahead of the sequence number is nothing but white space, std::bad_alloc when memory
// runs out. On the event thread, where nobody catches them, they end the process.
extern "C" __attribute__((visibility("default"))) unsigned int
libpld_sm_zarnek_entry(unsigned int command, void* input, void** output);

#endif
