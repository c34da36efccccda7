// Zeroed memory for the vendor library's answers.
#ifndef ZARNEK_MVLAYER_VENDORBUFFER_H
#define ZARNEK_MVLAYER_VENDORBUFFER_H

#include <mv.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>

namespace stg
{

struct FreeVendorBuffer {
    void operator()(void* buffer) const { std::free(buffer); }
};

// One record, zero-filled; null when the allocation failed.
template <class Record>
using VendorRecord = std::unique_ptr<Record, FreeVendorBuffer>;

template <class Record>
VendorRecord<Record> allocateVendorRecord(std::size_t count = 1)
{
    return VendorRecord<Record>(static_cast<Record*>(std::calloc(count, sizeof(Record))));
}

// The answer buffer of a list call: an _Info_Request and the entries behind it. How many entries the
// adapter's largest answer holds is computed in unsigned 32-bit arithmetic on every ABI and then cut to 16
// bits, and the size follows from what is left: an answer size below the header wraps around and ends in
// lists of up to 4 MB, a count that is cut to nothing in a size that counts as a failed allocation.
template <class Entry>
class ListBuffer
{
  public:
    // `answerSize` is the adapter's largest answer in bytes.
    explicit ListBuffer(std::uint32_t answerSize)
        : m_entryCount(static_cast<std::uint16_t>((answerSize - HEADER_SIZE) / STRIDE)),
          m_size((m_entryCount - 1U) * STRIDE + FIXED_SIZE)
    {
        if (m_size >= HEADER_SIZE &&
            m_size <= static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max()))
            m_buffer.reset(std::calloc(1, m_size));
    }

    // The count that goes with a request, cut to 16 bits; one more than the buffer has room for.
    std::uint16_t entryCount() const { return m_entryCount; }
    std::uint32_t size() const { return m_size; }
    // Null when the allocation failed.
    _Info_Request* request() const { return static_cast<_Info_Request*>(m_buffer.get()); }
    // How many entries the library says it filled.
    std::uint16_t returned() const { return m_buffer ? request()->NumReturned : std::uint16_t{0}; }
    // An entry, whatever the library claims: null when it does not lie wholly within the buffer.
    Entry* entry(std::size_t index) const
    {
        if (!m_buffer || index >= (m_size - HEADER_SIZE) / STRIDE)
            return nullptr;
        return reinterpret_cast<Entry*>(static_cast<unsigned char*>(m_buffer.get()) + HEADER_SIZE +
                                        index * STRIDE);
    }

  private:
    static constexpr std::uint32_t HEADER_SIZE = sizeof(_Info_Request);
    static constexpr std::uint32_t FIXED_SIZE =
        HEADER_SIZE + 2; // header and the first bytes of the entry area
    static constexpr std::uint32_t STRIDE = sizeof(Entry);
    static_assert(alignof(Entry) == 1);

    std::uint16_t m_entryCount;
    std::uint32_t m_size;
    std::unique_ptr<void, FreeVendorBuffer> m_buffer;
};

} // namespace stg

#endif
