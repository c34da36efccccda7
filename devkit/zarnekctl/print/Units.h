// Numbers in the units people use.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_UNITS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_UNITS_H

#include <chrono>
#include <cstdint>
#include <string>

namespace zarnekctl
{

// Decimal units with three digits: "512 B", "480 GB", "4.00 TB", "18.4 EB".
std::string sizeText(std::uint64_t bytes);
// A stripe size in blocks of 512 bytes, in binary units: "64 KiB".
std::string stripeText(std::uint64_t blocks);
// A link speed, 1024 for one Gbit/s: "1.5 Gbit/s"; "no speed" for 0.
std::string speedText(std::uint64_t speed);
// UTC with milliseconds: "2024-05-01T03:12:45.120Z".
std::string timeStamp(std::chrono::system_clock::time_point time);

} // namespace zarnekctl

#endif
