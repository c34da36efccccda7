// Numbers that stay with their devices.
#ifndef ZARNEK_DEVKIT_MVSIM_NUMBERBOOK_H
#define ZARNEK_DEVKIT_MVSIM_NUMBERBOOK_H

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace mvsim
{

// Gives each identity a number and never another one, as long as it lives.
class NumberBook
{
  public:
    // `wanted` if it is free; otherwise the lowest number that is.
    std::uint16_t numberOf(const std::string& identity, std::uint16_t wanted = 0);

  private:
    std::map<std::string, std::uint16_t> m_numbers;
    std::set<std::uint16_t> m_taken;
    std::uint16_t m_lowest = 0; // all numbers below it are taken
};

} // namespace mvsim

#endif
