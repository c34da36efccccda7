// Numbers of the control commands that the layer above sends through the exported function.
#ifndef ZARNEK_ENTRY_CONTROLCOMMAND_H
#define ZARNEK_ENTRY_CONTROLCOMMAND_H

namespace stg
{

enum ControlCommand : unsigned int {
    COMMAND_FIRST = 11, // anything below is refused without a look at it
    COMMAND_INITIALIZE = 20,
    COMMAND_START_MONITORING = 21,
    COMMAND_DISCOVER = 22,
    COMMAND_TERMINATE = 23,
    COMMAND_UNSUPPORTED_24 = 24,
    COMMAND_STOP_MONITORING = 25,
    COMMAND_NO_OPERATION_26 = 26,
    COMMAND_NO_OPERATION_27 = 27,
    COMMAND_UNSUPPORTED_28 = 28,
    COMMAND_NO_OPERATION_29 = 29,
    COMMAND_UNSUPPORTED_30 = 30,
};

} // namespace stg

#endif
