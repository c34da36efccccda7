#include "morlan/StringTable.h"

#include <cstring>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define MORLAN_ADDRESS_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define MORLAN_ADDRESS_SANITIZER
#endif

#ifdef MORLAN_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#endif

namespace morlan
{

namespace
{

constexpr std::size_t RESTING_BLOCKS = 16;

// A resting block is as good as freed: AddressSanitizer is to report whoever still reads it.
void forbid([[maybe_unused]] char* block)
{
#ifdef MORLAN_ADDRESS_SANITIZER
    ASAN_POISON_MEMORY_REGION(block, StringTable::ROOM);
#endif
}

void allow([[maybe_unused]] char* block)
{
#ifdef MORLAN_ADDRESS_SANITIZER
    ASAN_UNPOISON_MEMORY_REGION(block, StringTable::ROOM);
#endif
}

} // namespace

char* StringTable::create()
{
    auto block = std::make_unique<char[]>(ROOM);
    char* const string = block.get();
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_live.emplace(string, std::move(block));
    return string;
}

bool StringTable::assign(void* string, std::string_view text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_live.find(string);
    if (found == m_live.end() || text.size() >= ROOM)
        return false;
    char* const block = found->second.get();
    std::memcpy(block, text.data(), text.size());
    block[text.size()] = '\0';
    return true;
}

std::size_t StringTable::length(const void* string) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_live.find(string);
    return found == m_live.end() ? 0 : strnlen(found->second.get(), ROOM);
}

void StringTable::destroy(void* string)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_live.find(string);
    if (found == m_live.end())
        return;
    m_resting.push_back(std::move(found->second));
    forbid(m_resting.back().get());
    m_live.erase(found);
    if (m_resting.size() > RESTING_BLOCKS) {
        allow(m_resting.front().get());
        m_resting.pop_front();
    }
}

unsigned int StringTable::live() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<unsigned int>(m_live.size());
}

} // namespace morlan
