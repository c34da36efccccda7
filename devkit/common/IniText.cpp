#include "common/IniText.h"

#include "common/words.h"

#include <algorithm>

namespace devkit
{

namespace
{

constexpr std::string_view BLANKS = " \t\r";

} // namespace

IniText::IniText(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t feed = text.find('\n');
        if (feed == std::string_view::npos) {
            m_lines.push_back(parse(text, {}));
            break;
        }
        const std::size_t length = feed > 0 && text[feed - 1] == '\r' ? feed - 1 : feed;
        m_lines.push_back(parse(text.substr(0, length), text.substr(length, feed + 1 - length)));
        text.remove_prefix(feed + 1);
    }
}

IniText::Line IniText::parse(std::string_view text, std::string_view end)
{
    Line line{Kind::NoPair, std::string(text), std::string(end), {}, 0};
    const std::string_view content = trimmed(text);
    if (content.empty()) {
        line.kind = Kind::Blank;
    } else if (content.front() == ';' || content.front() == '#') {
        line.kind = Kind::Comment;
    } else if (content.front() == '[') {
        const std::size_t close = content.find(']');
        line.kind = close == std::string_view::npos ? Kind::OpenHeader : Kind::Header;
        if (line.kind == Kind::Header)
            line.name = trimmed(content.substr(1, close - 1));
    } else if (const std::size_t equals = text.find('='); equals != std::string_view::npos) {
        line.kind = Kind::Pair;
        line.name = trimmed(text.substr(0, equals));
        line.value = std::min(text.find_first_not_of(BLANKS, equals + 1), text.size());
    }
    return line;
}

std::optional<std::string> IniText::value(std::string_view section, std::string_view key) const
{
    const std::optional<std::size_t> found = find(section, key);
    if (!found)
        return std::nullopt;
    const Line& line = m_lines[*found];
    return std::string(trimmed(std::string_view(line.text).substr(line.value)));
}

bool IniText::setValue(std::string_view section, std::string_view key, std::string_view value)
{
    for (const std::string_view text : {section, key, value})
        if (text.find_first_of(std::string_view("\n\r\0", 3)) != std::string_view::npos)
            return false;
    const std::string header = '[' + std::string(section) + ']';
    const std::string pair = std::string(key) + '=' + std::string(value);
    if (key.empty() || parse(header, {}).name != section || parse(pair, {}).kind != Kind::Pair ||
        parse(pair, {}).name != key)
        return false;

    if (const std::optional<std::size_t> present = find(section, key)) {
        Line& line = m_lines[*present];
        line.text.replace(line.value, std::string::npos, value);
        return true;
    }
    std::optional<std::size_t> position = endOf(section);
    if (!position) {
        insert(m_lines.size(), header);
        position = m_lines.size();
    }
    insert(*position, pair);
    return true;
}

std::string IniText::text() const
{
    std::string result;
    for (const Line& line : m_lines)
        (result += line.text) += line.end;
    return result;
}

std::optional<std::size_t> IniText::find(std::string_view section, std::string_view key) const
{
    bool within = section.empty();
    for (std::size_t index = 0; index < m_lines.size(); ++index) {
        const Line& line = m_lines[index];
        if (line.kind == Kind::Header)
            within = line.name == section;
        else if (within && line.kind == Kind::Pair && line.name == key)
            return index;
    }
    return std::nullopt;
}

std::optional<std::size_t> IniText::endOf(std::string_view section) const
{
    const auto isHeader = [](const Line& line) { return line.kind == Kind::Header; };
    auto first = m_lines.begin();
    if (!section.empty()) {
        first = std::find_if(first, m_lines.end(),
                             [&](const Line& line) { return isHeader(line) && line.name == section; });
        if (first == m_lines.end())
            return std::nullopt;
        ++first;
    }
    auto end = std::find_if(first, m_lines.end(), isHeader);
    while (end != first && (end - 1)->kind == Kind::Blank)
        --end;
    return static_cast<std::size_t>(end - m_lines.begin());
}

void IniText::insert(std::size_t position, std::string_view text)
{
    const std::string style = m_lines.empty() || m_lines.front().end.empty() ? "\n" : m_lines.front().end;
    std::string end = style;
    // Behind a last line without an end, the new line becomes the one without.
    if (position > 0 && m_lines[position - 1].end.empty())
        m_lines[position - 1].end.swap(end);
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(position), parse(text, end));
}

} // namespace devkit
