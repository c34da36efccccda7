// The string objects that the library has given out: blocks of text, each known by its own address. Safe from
// several threads; one string is for one thread at a time.
#ifndef ZARNEK_DEVKIT_MORLAN_STRINGTABLE_H
#define ZARNEK_DEVKIT_MORLAN_STRINGTABLE_H

#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string_view>

namespace morlan
{

class StringTable
{
  public:
    // Room of a string, terminator included.
    static constexpr std::size_t ROOM = 4096;

    // An empty string; its address is that of its first character.
    char* create();
    // False when the string is unknown or the text does not fit; the string is then as before.
    bool assign(void* string, std::string_view text);
    // 0 for an unknown string.
    std::size_t length(const void* string) const;
    // Does nothing for an unknown string, so that a string may be destroyed twice.
    void destroy(void* string);
    unsigned int live() const;

  private:
    using Block = std::unique_ptr<char[]>;

    mutable std::mutex m_mutex;
    std::map<const void*, Block> m_live;
    // Blocks destroyed last. Their addresses are not given out yet: a second destroy of the same string must
    // not hit the new string of another thread.
    std::deque<Block> m_resting;
};

} // namespace morlan

#endif
