// The vendor library's entry points as values, so that scenarios and rules can name them.
#ifndef ZARNEK_DEVKIT_MVSIM_ENTRYPOINT_H
#define ZARNEK_DEVKIT_MVSIM_ENTRYPOINT_H

#include <mv.h>

#include <array>
#include <cstddef>

namespace mvsim
{

enum class EntryPoint : std::size_t {
#define MVSIM_NAME(symbol, arguments) symbol,
    MV_API_LIST(MVSIM_NAME)
#undef MVSIM_NAME
};

constexpr std::array ENTRY_POINT_NAMES{
#define MVSIM_TEXT(symbol, arguments) #symbol,
    MV_API_LIST(MVSIM_TEXT)
#undef MVSIM_TEXT
};

constexpr const char* nameOf(EntryPoint entry)
{
    return ENTRY_POINT_NAMES[static_cast<std::size_t>(entry)];
}

// True for a call that concerns the library as a whole and takes no adapter index.
constexpr bool isLibraryWide(EntryPoint entry)
{
    return entry <= EntryPoint::MV_Adapter_GetCount;
}

// Callers look at the low byte of a result alone.
constexpr bool isSuccess(unsigned int result)
{
    return (result & 0xff) == MV_ERR_NONE;
}

static_assert(isLibraryWide(EntryPoint::MV_API_Version) && !isLibraryWide(EntryPoint::MV_Adapter_GetInfo));

} // namespace mvsim

#endif
