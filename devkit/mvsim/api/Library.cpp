#include "mvsim/api/Library.h"

#include "mvsim/api/SourceChoice.h"

namespace mvsim
{

Library::Library()
    : simulator(&environmentSource), faults({
#define MVSIM_CAN_FAIL(symbol, arguments) {#symbol, true},
                                         MV_API_LIST(MVSIM_CAN_FAIL)
#undef MVSIM_CAN_FAIL
                                     })
{
}

Library& Library::instance()
{
    static Library library;
    return library;
}

} // namespace mvsim
