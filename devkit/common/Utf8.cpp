#include "common/Utf8.h"

#include "common/text.h"

namespace devkit
{

namespace
{

unsigned byteAt(std::string_view text, std::size_t index)
{
    return static_cast<unsigned char>(text[index]);
}

// C0 and C1 controls steer a terminal; C1 comes as the sequences c2 80 to c2 9f.
bool isControl(std::string_view sequence)
{
    if (sequence.size() == 1)
        return byteAt(sequence, 0) < 0x20 || byteAt(sequence, 0) == 0x7f;
    return sequence.size() == 2 && byteAt(sequence, 0) == 0xc2 && byteAt(sequence, 1) < 0xa0;
}

} // namespace

std::size_t utf8SequenceLength(std::string_view text)
{
    if (text.empty())
        return 0;
    const unsigned lead = byteAt(text, 0);
    if (lead < 0x80)
        return 1;
    std::size_t length = 0;
    unsigned point = 0;
    unsigned smallest = 0;
    if (lead >= 0xc2 && lead <= 0xdf) {
        length = 2;
        point = lead & 0x1f;
        smallest = 0x80;
    } else if (lead >= 0xe0 && lead <= 0xef) {
        length = 3;
        point = lead & 0x0f;
        smallest = 0x800;
    } else if (lead >= 0xf0 && lead <= 0xf4) {
        length = 4;
        point = lead & 0x07;
        smallest = 0x10000;
    }
    if (length == 0 || text.size() < length)
        return 0;
    for (std::size_t index = 1; index < length; ++index) {
        if ((byteAt(text, index) & 0xc0) != 0x80)
            return 0;
        point = (point << 6) | (byteAt(text, index) & 0x3f);
    }
    const bool surrogate = point >= 0xd800 && point <= 0xdfff;
    return point >= smallest && point <= 0x10ffff && !surrogate ? length : 0;
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = utf8SequenceLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string escaped(std::string_view text, bool asciiOnly)
{
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = utf8SequenceLength(text);
        const std::string_view sequence = text.substr(0, length == 0 ? 1 : length);
        if (length == 0 || isControl(sequence) || (asciiOnly && length > 1))
            for (const char& byte : sequence)
                out += "\\x" + hex({&byte, 1});
        else
            out += sequence;
        text.remove_prefix(sequence.size());
    }
    return out;
}

std::size_t displayWidth(std::string_view text)
{
    std::size_t width = 0;
    while (!text.empty()) {
        const std::size_t length = utf8SequenceLength(text);
        text.remove_prefix(length == 0 ? 1 : length);
        ++width;
    }
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
