#include "mvsim/scenario/Amount.h"

#include "common/words.h"

#include <limits>

namespace mvsim
{

namespace
{

struct Unit {
    const char* name;
    std::uint64_t bytes;
};

constexpr Unit UNITS[] = {
    {"kB", 1000},
    {"MB", 1000ULL * 1000},
    {"GB", 1000ULL * 1000 * 1000},
    {"TB", 1000ULL * 1000 * 1000 * 1000},
    {"PB", 1000ULL * 1000 * 1000 * 1000 * 1000},
    {"KiB", 1ULL << 10},
    {"MiB", 1ULL << 20},
    {"GiB", 1ULL << 30},
    {"TiB", 1ULL << 40},
    {"PiB", 1ULL << 50},
};

} // namespace

std::optional<std::uint64_t> bytesOfAmount(const std::string& text)
{
    constexpr std::size_t MOST_DIGITS = 18; // what 64 bits hold for certain
    const auto digitsEnd = [&text](std::size_t from) {
        while (from < text.size() && devkit::isDigit(text[from]))
            ++from;
        return from;
    };
    const std::size_t wholeEnd = digitsEnd(0);
    std::size_t unitStart = wholeEnd;
    std::string fraction;
    if (wholeEnd < text.size() && text[wholeEnd] == '.') {
        unitStart = digitsEnd(wholeEnd + 1);
        fraction = text.substr(wholeEnd + 1, unitStart - wholeEnd - 1);
        if (fraction.empty() || fraction.size() > 3)
            return std::nullopt;
    }
    if (wholeEnd == 0 || wholeEnd > MOST_DIGITS)
        return std::nullopt;
    if (unitStart < text.size() && text[unitStart] == ' ')
        ++unitStart;
    const std::string unitName = text.substr(unitStart);
    for (const Unit& unit : UNITS) {
        if (unitName == unit.name) {
            fraction.resize(3, '0');
            const std::uint64_t part = std::stoull(fraction) * unit.bytes / 1000;
            const std::uint64_t whole = std::stoull(text.substr(0, wholeEnd));
            if (whole > (std::numeric_limits<std::uint64_t>::max() - part) / unit.bytes)
                return std::nullopt;
            return whole * unit.bytes + part;
        }
    }
    return std::nullopt;
}

} // namespace mvsim
