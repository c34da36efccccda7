// The plug-in's own interface: its one exported function, the numbers of the control commands that the layer
// above sends through it, and the statuses that come back.
#ifndef ZARNEK_PLATFORM_ZARNEK_H
#define ZARNEK_PLATFORM_ZARNEK_H

// Runs a control command on the calling thread, one at a time, and returns its status.
//
//   20 initialise  on success *output becomes the vendor layer number 9 (the number itself, not a pointer)
//   22 discover    input points to the first global controller number (unsigned int), *output to an unsigned
//                  int that receives the running total of controllers
//   21 start monitoring, 25 stop monitoring, 23 terminate; 26, 27 and 29 do nothing
//
// Commands 20 and 22 follow these pointers without a test. The expected order is 20, 22, 21, 25, 23; above
// all 25 has to come before 23, which unloads the vendor library under whoever still uses it.
//
// Exceptions of the standard library leave the function: std::out_of_range from command 22 when a line of
// MarvelAlertMapping.ini that is read on the way to the sequence number is nothing but white space,
// std::bad_alloc when memory runs out. On the event thread, where nobody catches them, they end the process.
extern "C" unsigned int libpld_sm_zarnek_entry(unsigned int command, void* input, void** output);

using ZARNEK_Entry_t = unsigned int (*)(unsigned int command, void* input, void** output);
constexpr char ZARNEK_ENTRY_NAME[] = "libpld_sm_zarnek_entry";

constexpr unsigned int ZARNEK_CMD_FIRST = 11; // anything below is refused with a line that names it
constexpr unsigned int ZARNEK_CMD_INITIALIZE = 20;
constexpr unsigned int ZARNEK_CMD_START_MONITORING = 21;
constexpr unsigned int ZARNEK_CMD_DISCOVER = 22;
constexpr unsigned int ZARNEK_CMD_TERMINATE = 23;
constexpr unsigned int ZARNEK_CMD_UNSUPPORTED_24 = 24;
constexpr unsigned int ZARNEK_CMD_STOP_MONITORING = 25;
constexpr unsigned int ZARNEK_CMD_NO_OPERATION_26 = 26;
constexpr unsigned int ZARNEK_CMD_NO_OPERATION_27 = 27;
constexpr unsigned int ZARNEK_CMD_UNSUPPORTED_28 = 28;
constexpr unsigned int ZARNEK_CMD_NO_OPERATION_29 = 29;
constexpr unsigned int ZARNEK_CMD_UNSUPPORTED_30 = 30;

constexpr unsigned int ZARNEK_STATUS_DONE = 0;
constexpr unsigned int ZARNEK_STATUS_FAILED = 1;         // command 20 only; the log says why
constexpr unsigned int ZARNEK_STATUS_UNSUPPORTED = 2052; // not a command of the plug-in

#endif
