#include "mvsim/api/Library.h"

#include "mvsim/api/SourceChoice.h"

namespace mvsim
{

Library::Library() : simulator(&environmentSource) {}

Library& Library::instance()
{
    static Library library;
    return library;
}

} // namespace mvsim
