#include "mvsim/Library.h"

#include "mvsim/SourceChoice.h"

namespace mvsim
{

Library::Library() : simulator(&environmentSource) {}

Library& Library::instance()
{
    static Library library;
    return library;
}

} // namespace mvsim
