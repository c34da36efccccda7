#include "mvsim/live/NumberBook.h"

#include <limits>

namespace mvsim
{

std::uint16_t NumberBook::numberOf(const std::string& identity, std::uint16_t wanted)
{
    const auto known = m_numbers.find(identity);
    if (known != m_numbers.end())
        return known->second;
    std::uint16_t number = wanted;
    if (m_taken.count(number) != 0) {
        while (m_taken.count(m_lowest) != 0 && m_lowest < std::numeric_limits<std::uint16_t>::max())
            ++m_lowest;
        number = m_lowest;
    }
    m_taken.insert(number);
    m_numbers.emplace(identity, number);
    return number;
}

} // namespace mvsim
