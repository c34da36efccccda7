#include "entry/CCommandHandler.h"
#include "support/CLogger.h"
#include "support/LogScope.h"

#include <zarnek.h>

// The one symbol that the library exports.
extern "C" __attribute__((visibility("default"))) unsigned int
libpld_sm_zarnek_entry(unsigned int command, void* input, void** output)
{
    const stg::LogScope scope("ZARNEK:pld_sm_zarnek_entry()");

    unsigned int status = CCommandHandler::getUniqueInstance()->navigator(command, input, output);
    if (status == ZARNEK_STATUS_DONE && command == ZARNEK_CMD_TERMINATE) {
        scope.message() << "Releasing CCommand Handler Instance and Going to Terminate The Process." << '\n';
        status = static_cast<unsigned int>(CCommandHandler::destroyMe());
    }
    return status;
}
