#include "common/Utf8.h"

#include "common/text.h"

#include <algorithm>
#include <clocale>
#include <cwchar>
#include <utf8.h>

namespace devkit
{

namespace
{

// Goes through the text: onCharacter(bytes, code point) for what is UTF-8, onByte(byte) for what is not.
template <typename OnCharacter, typename OnByte>
void scan(std::string_view text, OnCharacter onCharacter, OnByte onByte)
{
    while (!text.empty()) {
        const std::string_view valid = text.substr(0, utf8::find_invalid(text));
        for (const char* at = valid.data(); at != valid.data() + valid.size();) {
            const char* const begin = at;
            const char32_t point = utf8::unchecked::next(at);
            onCharacter(std::string_view(begin, static_cast<std::size_t>(at - begin)), point);
        }
        text.remove_prefix(valid.size());
        if (!text.empty()) {
            onByte(text.front());
            text.remove_prefix(1);
        }
    }
}

// C0 and C1 controls steer a terminal; controls of the writing direction show text in another order than it
// has, also the text behind them.
bool isControl(char32_t point)
{
    const auto within = [point](char32_t first, char32_t last) { return first <= point && point <= last; };
    return point < 0x20 || within(0x7f, 0x9f) || point == 0x61c || within(0x200e, 0x200f) ||
           within(0x202a, 0x202e) || within(0x2066, 0x2069);
}

// This thread's locale for as long as it lives. The process keeps its own, by which the plug-in tells what
// white space is.
class Utf8Locale
{
  public:
    Utf8Locale() : m_former(uselocale(locale())) {}
    ~Utf8Locale() { uselocale(m_former); }
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;

  private:
    static locale_t locale()
    {
        static const locale_t UTF8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return UTF8;
    }

    locale_t m_former;
};

} // namespace

bool isUtf8(std::string_view text)
{
    return utf8::is_valid(text);
}

std::string escaped(std::string_view text, bool asciiOnly)
{
    std::string out;
    out.reserve(text.size());
    const auto escape = [&out](const char& byte) { out += "\\x" + hex({&byte, 1}); };
    scan(
        text,
        [&](std::string_view bytes, char32_t point) {
            if (isControl(point) || (asciiOnly && bytes.size() > 1))
                std::for_each(bytes.begin(), bytes.end(), escape);
            else
                out += bytes;
        },
        escape);
    return out;
}

std::size_t displayWidth(std::string_view text)
{
    const Utf8Locale locale;
    std::size_t width = 0;
    const auto add = [&width](int columns) {
        width += columns < 0 ? 1 : static_cast<std::size_t>(columns); // below zero: not known
    };
    scan(
        text, [&](std::string_view, char32_t point) { add(wcwidth(static_cast<wchar_t>(point))); },
        [&](char) { add(1); });
    return width;
}

std::string padded(std::string_view text, std::size_t width)
{
    std::string out(text);
    const std::size_t shown = displayWidth(text);
    if (shown < width)
        out.append(width - shown, ' ');
    return out;
}

} // namespace devkit
