// Numbers that look random and are the same for the same seed, in every build.
#ifndef ZARNEK_DEVKIT_MVHOSTILE_DICE_H
#define ZARNEK_DEVKIT_MVHOSTILE_DICE_H

#include <cstddef>
#include <cstdint>

namespace mvhostile
{

class Dice
{
  public:
    // Streams of one seed do not resemble each other.
    Dice(std::uint64_t seed, std::uint64_t stream) : m_state(mixed(seed) ^ mixed(~stream)) {}

    std::uint64_t wide() { return mixed(m_state += STEP); }
    std::uint32_t next() { return static_cast<std::uint32_t>(wide() >> 32); }
    // 0 to limit - 1.
    std::uint32_t below(std::uint32_t limit) { return next() % limit; }
    bool oneIn(std::uint32_t chances) { return below(chances) == 0; }
    template <class Value, std::size_t COUNT>
    Value pick(const Value (&values)[COUNT])
    {
        return values[below(COUNT)];
    }

  private:
    static constexpr std::uint64_t STEP = 0x9e3779b97f4a7c15;

    // The finaliser of the splitmix64 generator.
    static std::uint64_t mixed(std::uint64_t value)
    {
        value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9;
        value = (value ^ (value >> 27)) * 0x94d049bb133111eb;
        return value ^ (value >> 31);
    }

    std::uint64_t m_state;
};

} // namespace mvhostile

#endif
