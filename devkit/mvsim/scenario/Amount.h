// Amounts of data as people write them.
#ifndef ZARNEK_DEVKIT_MVSIM_AMOUNT_H
#define ZARNEK_DEVKIT_MVSIM_AMOUNT_H

#include <cstdint>
#include <optional>
#include <string>

namespace mvsim
{

// "4TB", "1.92 TB", "64KiB" in bytes; at most three digits behind the point, exact. Nothing when it is no
// such text, or more than 64 bits hold.
std::optional<std::uint64_t> bytesOfAmount(const std::string& text);

} // namespace mvsim

#endif
