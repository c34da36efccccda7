// A JSON object read strictly: every member is fetched by name, and in the end none may be left over.
// Whatever is not as expected is thrown as a FormatError.
#ifndef ZARNEK_DEVKIT_MVSIM_STRICTOBJECT_H
#define ZARNEK_DEVKIT_MVSIM_STRICTOBJECT_H

#include "mvsim/scenario/FormatError.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace mvsim
{

// A word that may stand for a number in a scenario.
struct Word {
    const char* text;
    std::uint32_t value;
};

class Words
{
  public:
    template <std::size_t N>
    constexpr Words(const Word (&words)[N]) : m_first(words), m_last(words + N)
    {
    }
    const Word* begin() const { return m_first; }
    const Word* end() const { return m_last; }

  private:
    const Word* m_first;
    const Word* m_last;
};

class StrictObject
{
  public:
    // `value` has to outlive the object. `place` is its JSON pointer, empty for the whole document.
    StrictObject(const Json& value, std::string place);

    const std::string& place() const { return m_place; }
    std::string place(const char* key) const;
    bool has(const char* key) const { return m_value->contains(key); }

    // Each of these names a key that may stand there; the result is empty, or null, when it does not.
    const Json* find(const char* key);
    template <class T>
    std::optional<T> number(const char* key, T least = 0)
    {
        const auto value = wholeNumber(key, least, std::numeric_limits<T>::max());
        return value ? std::optional<T>(static_cast<T>(*value)) : std::nullopt;
    }
    std::optional<bool> flag(const char* key);
    // A number, or one of the words.
    template <class T>
    std::optional<T> numberOrWord(const char* key, Words words)
    {
        const auto value = wordNumber(key, words, std::numeric_limits<T>::max(), false);
        return value ? std::optional<T>(static_cast<T>(*value)) : std::nullopt;
    }
    // A number, a word, or a list of words whose bits are joined.
    template <class T>
    std::optional<T> numberOrFlags(const char* key, Words words)
    {
        const auto value = wordNumber(key, words, std::numeric_limits<T>::max(), true);
        return value ? std::optional<T>(static_cast<T>(*value)) : std::nullopt;
    }
    // A text of at most so many bytes; "hex:" and digit pairs give bytes that no text can hold.
    std::optional<std::string> bytes(const char* key, std::size_t width);
    // An amount in units of 1024 bytes, given as one of <prefix>KB, <prefix>Bytes and <prefix>.
    std::optional<std::uint64_t> kilobytes(const std::string& prefix);
    // The elements of a list; none without the key.
    const Json& list(const char* key);
    // Calls `read(element)` for each element of a list of objects.
    template <class Read>
    void each(const char* key, Read read)
    {
        const Json& elements = list(key);
        for (std::size_t i = 0; i < elements.size(); ++i) {
            StrictObject element(elements[i], placeBelow(place(key), i));
            read(element);
        }
    }

    // The result of one of the readers above, which has to be there.
    template <class T>
    T needed(const char* key, const std::optional<T>& value) const
    {
        if (!value)
            throw FormatError(place(key), "a value", "nothing");
        return *value;
    }

    // To be called last: no key may be left that nobody asked for.
    void finish() const;

  private:
    std::optional<std::uint64_t> wholeNumber(const char* key, std::uint64_t least, std::uint64_t most);
    std::optional<std::uint64_t> wordNumber(const char* key, Words words, std::uint64_t most, bool joins);

    const Json* m_value;
    std::string m_place;
    std::vector<std::string> m_known;
};

// Digit pairs, blanks between them allowed, as bytes; `found` is the value that an error shows.
std::string hexBytes(const std::string& text, const std::string& place, const Json& found);

} // namespace mvsim

#endif
