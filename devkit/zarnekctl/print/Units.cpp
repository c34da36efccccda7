#include "zarnekctl/print/Units.h"

#include <sdo.h>

#include <cstdio>
#include <ctime>

namespace zarnekctl
{

namespace
{

constexpr std::uint64_t BLOCK = 512; // bytes
constexpr std::uint64_t BINARY_STEP = 1024;
constexpr std::uint64_t GIGABIT = 1024; // a second, as a link speed

// `value` / `divisor` rounded to the nearest, without overflow near the top of the range.
std::uint64_t rounded(std::uint64_t value, std::uint64_t divisor)
{
    const std::uint64_t rest = value % divisor;
    return value / divisor + (rest >= divisor - rest ? 1 : 0);
}

// `scaled` has `decimals` digits behind the point.
std::string decimalText(std::uint64_t scaled, int decimals)
{
    const auto behind = static_cast<std::size_t>(decimals);
    std::string text = std::to_string(scaled);
    if (text.size() <= behind)
        text.insert(0, behind + 1 - text.size(), '0');
    if (behind > 0)
        text.insert(text.size() - behind, ".");
    return text;
}

} // namespace

std::string sizeText(std::uint64_t bytes)
{
    static constexpr const char* UNITS[] = {"kB", "MB", "GB", "TB", "PB", "EB"};
    if (bytes < 1000)
        return std::to_string(bytes) + " B";
    std::uint64_t unit = 1000;
    for (const char* name : UNITS) {
        // Two decimals, then one, then none: the first that needs no more than three digits.
        for (int decimals = 2; decimals >= 0; --decimals) {
            const std::uint64_t step = decimals == 2 ? unit / 100 : decimals == 1 ? unit / 10 : unit;
            const std::uint64_t scaled = rounded(bytes, step);
            if (scaled < 1000)
                return decimalText(scaled, decimals) + " " + name;
        }
        unit *= 1000;
    }
    return std::to_string(bytes) + " B"; // not reached: 2^64 bytes are 18.4 EB
}

std::string stripeText(std::uint64_t blocks)
{
    if (blocks % (BINARY_STEP / BLOCK) != 0)
        return std::to_string(blocks * BLOCK) + " B";
    const std::uint64_t kilobytes = blocks / (BINARY_STEP / BLOCK);
    if (kilobytes >= BINARY_STEP && kilobytes % BINARY_STEP == 0)
        return std::to_string(kilobytes / BINARY_STEP) + " MiB";
    return std::to_string(kilobytes) + " KiB";
}

std::string speedText(std::uint64_t speed)
{
    if (speed == SDO_SPEED_NONE)
        return "no speed";
    const std::uint64_t tenths = rounded(speed * 10, GIGABIT);
    return (tenths % 10 == 0 ? std::to_string(tenths / 10) : decimalText(tenths, 1)) + " Gbit/s";
}

std::string timeStamp(std::chrono::system_clock::time_point time)
{
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count();
    const auto seconds = static_cast<std::time_t>(milliseconds / 1000);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    char date[32];
    std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%S", &parts);
    char text[48];
    std::snprintf(text, sizeof text, "%s.%03dZ", date, static_cast<int>(milliseconds % 1000));
    return text;
}

} // namespace zarnekctl
