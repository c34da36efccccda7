#include "zarnekctl/config/MappingFile.h"

#include "common/files.h"
#include <zarnek_ini.h>

#include <cctype>
#include <cstdlib>
#include <limits>

namespace zarnekctl
{

namespace
{

std::string withoutWhiteSpace(const std::string& text)
{
    std::string out;
    for (const char character : text)
        if (std::isspace(static_cast<unsigned char>(character)) == 0)
            out += character;
    return out;
}

} // namespace

MappingFile::MappingFile(const std::string& content)
{
    std::string section;
    bool headless = true;
    std::size_t begin = 0;
    while (begin < content.size()) {
        const std::size_t end = content.find('\n', begin);
        Line line;
        line.number = m_lines.size() + 1;
        line.raw = content.substr(begin, end == std::string::npos ? end : end - begin);
        begin = end == std::string::npos ? content.size() : end + 1;

        const std::string text = withoutWhiteSpace(line.raw);
        const std::size_t open = text.find('[');
        const std::size_t close = text.find(']');
        if (line.raw.empty() || (!text.empty() && text.front() == ';')) {
            line.kind = LineKind::Ignored;
        } else if (text.empty()) {
            line.kind = LineKind::Fatal;
        } else if (open != std::string::npos && close != std::string::npos) {
            // The name's length counts from the line's beginning, so a header must begin its line; with the
            // bracket in the first place the length wraps around to all that is left.
            line.kind = LineKind::Section;
            section = text.substr(open + 1, close - 1);
            headless = false;
            line.section = section;
        } else {
            line.kind = LineKind::Pair;
            line.section = section;
            line.headless = headless;
            const std::size_t equals = text.find('=');
            line.hasEquals = equals != std::string::npos;
            line.key = text.substr(0, equals);
            line.value = line.hasEquals ? text.substr(equals + 1) : text;
        }
        m_lines.push_back(line);
    }
}

std::optional<MappingFile> MappingFile::read(const std::filesystem::path& file)
{
    std::string content;
    if (devkit::readFile(file.string(), content) != devkit::FileRead::Done)
        return std::nullopt;
    return MappingFile(content);
}

const MappingFile::Line* MappingFile::find(const std::string& section, const std::string& key) const
{
    for (const Line& line : m_lines) {
        if (line.kind == LineKind::Fatal)
            return nullptr;
        if (line.kind == LineKind::Pair && line.key == key && (line.headless || line.section == section))
            return &line;
    }
    return nullptr;
}

const MappingFile::Line* MappingFile::fatalOnTheWayTo(const std::string& section,
                                                      const std::string& key) const
{
    if (find(section, key) != nullptr)
        return nullptr;
    for (const Line& line : m_lines)
        if (line.kind == LineKind::Fatal)
            return &line;
    return nullptr;
}

std::optional<std::uint32_t> MappingFile::alertNumber(const std::string& section, unsigned int code) const
{
    const Line* line = find(section, std::to_string(code));
    const std::uint32_t number = line == nullptr ? INI_NO_NUMBER : numberOf(line->value);
    return number < INI_FIRST_ALERT_NUMBER || number == INI_NO_NUMBER ? std::nullopt
                                                                      : std::optional<std::uint32_t>(number);
}

std::uint32_t MappingFile::sequenceNumber() const
{
    const Line* line = find(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY);
    return line == nullptr ? INI_NO_NUMBER : numberOf(line->value);
}

std::uint32_t MappingFile::sequenceNumberIn(const std::filesystem::path& file)
{
    const auto mapping = read(file);
    return mapping ? mapping->sequenceNumber() : INI_NO_NUMBER;
}

std::uint32_t MappingFile::numberOf(const std::string& value)
{
    constexpr long long LIMIT = std::numeric_limits<std::uint32_t>::max();
    const long long number = std::strtoll(value.c_str(), nullptr, 10);
    return number > LIMIT || number < -LIMIT ? INI_NO_NUMBER : static_cast<std::uint32_t>(number);
}

} // namespace zarnekctl
