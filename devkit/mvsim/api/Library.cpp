#include "mvsim/api/Library.h"

#include "mvsim/api/SourceChoice.h"

namespace mvsim
{

namespace
{

// With the library itself, so that no call of it lacks the memory for this.
[[maybe_unused]] const Library& LOADED = Library::instance();

} // namespace

Library::Library()
    : simulator(&environmentSource), faults({
#define MVSIM_CAN_FAIL(symbol, arguments) #symbol,
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
