// The rows of a constant table, to be walked by those who do not see the table itself.
#ifndef ZARNEK_DEVKIT_ROWS_H
#define ZARNEK_DEVKIT_ROWS_H

#include <cstddef>

namespace devkit
{

// The table outlives it.
template <typename Row>
class Rows
{
  public:
    template <std::size_t COUNT>
    constexpr Rows(const Row (&table)[COUNT]) : m_begin(table), m_end(table + COUNT)
    {
    }

    constexpr const Row* begin() const { return m_begin; }
    constexpr const Row* end() const { return m_end; }

  private:
    const Row* m_begin;
    const Row* m_end;
};

} // namespace devkit

#endif
