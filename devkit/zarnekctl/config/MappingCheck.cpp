#include "zarnekctl/config/MappingCheck.h"

#include <zarnek_ini.h>

#include <algorithm>
#include <cctype>
#include <iterator>

namespace zarnekctl
{

namespace
{

using Line = MappingFile::Line;
using LineKind = MappingFile::LineKind;

constexpr const char* MAPPING_SECTIONS[] = {INI_ADAPTER_SECTION, INI_PHYSICAL_DISK_SECTION,
                                            INI_VIRTUAL_DISK_SECTION};
constexpr unsigned long HIGHEST_EVENT_CODE = 65535; // event codes have 16 bits
constexpr std::uint32_t HIGHEST_SEQUENCE = INI_NO_NUMBER - 1;
const std::string HIGHEST_NUMBER = std::to_string(HIGHEST_SEQUENCE);
constexpr std::uint32_t FEW_EVENTS = 1000000; // before their numbers end
constexpr const char* BYTE_ORDER_MARK = "\xEF\xBB\xBF";

// As a remedy has it.
std::string sequencePair(std::uint32_t number)
{
    return std::string(INI_SEQUENCE_KEY) + "=" + std::to_string(number) + " below " +
           inBrackets(INI_SEQUENCE_SECTION);
}

std::string lowered(std::string text)
{
    for (char& character : text)
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    return text;
}

bool isMappingSection(const std::string& name)
{
    return std::find(std::begin(MAPPING_SECTIONS), std::end(MAPPING_SECTIONS), name) !=
           std::end(MAPPING_SECTIONS);
}

bool isRead(const std::string& section)
{
    return isMappingSection(section) || section == INI_SEQUENCE_SECTION;
}

bool isDigits(const std::string& text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

// A key that some event can have: a decimal number of 16 bits, written as the plug-in writes it.
bool isEventCode(const std::string& key)
{
    if (!isDigits(key) || key.size() > 5 || (key.size() > 1 && key.front() == '0'))
        return false;
    return std::stoul(key) <= HIGHEST_EVENT_CODE;
}

// The section that was meant by a name that differs in case only.
std::string nearSection(const std::string& name)
{
    for (const std::string section :
         {INI_ADAPTER_SECTION, INI_PHYSICAL_DISK_SECTION, INI_VIRTUAL_DISK_SECTION, INI_SEQUENCE_SECTION})
        if (lowered(name) == lowered(section))
            return section;
    return {};
}

} // namespace

void MappingCheck::add(std::size_t line, Effect effect, std::string what, std::string remedy)
{
    m_findings.push_back({line, effect, std::move(what), std::move(remedy)});
}

Findings MappingCheck::run()
{
    m_findings.clear();
    m_firstLines.clear();
    m_carriageReturnTold = false;
    for (const Line& line : m_file.lines()) {
        if (line.number == 1 && line.raw.rfind(BYTE_ORDER_MARK, 0) == 0) {
            add(1, Effect::Surprise, "a byte-order mark makes this line other than it looks",
                "save the file as UTF-8 without one");
            continue;
        }
        if (line.kind == LineKind::Fatal) {
            checkFatal(line);
            continue;
        }
        if (!m_carriageReturnTold && !line.raw.empty() && line.raw.back() == '\r') {
            m_carriageReturnTold = true;
            add(line.number, Effect::Surprise,
                "the line ends in CR LF, which makes each empty line a fatal one",
                "save the file with LF line ends");
        }
        if (line.kind == LineKind::Section)
            checkSection(line);
        else if (line.kind == LineKind::Pair)
            checkPair(line);
    }
    checkSequenceNumber();
    checkThatSomethingIsMapped();
    sortByLine(m_findings);
    return m_findings;
}

void MappingCheck::checkFatal(const Line& line)
{
    // Discovery reads the file only as far as the sequence number.
    const Line* blocking = m_file.fatalOnTheWayTo(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY);
    const Effect effect = blocking == &line ? Effect::NoDiscovery : Effect::NoMonitoring;
    const bool carriageReturn = line.raw == "\r";
    add(line.number, effect,
        carriageReturn ? "an empty line with CR LF line end, which ends the thread that reads the file"
                       : "a line of nothing but white space, which ends the thread that reads the file",
        carriageReturn ? "save the file with LF line ends" : "empty the line or delete it");
}

void MappingCheck::checkSection(const Line& line)
{
    if (isRead(line.section))
        return;
    const std::string meant = nearSection(line.section);
    add(line.number, Effect::Surprise, "nothing reads a section with the name \"" + line.section + "\"",
        meant.empty() ? std::string("use ") + INI_ADAPTER_SECTION + ", " + INI_PHYSICAL_DISK_SECTION + ", " +
                            INI_VIRTUAL_DISK_SECTION + " or " + INI_SEQUENCE_SECTION
                      : "write " + inBrackets(meant) + ", the case of the letters counts");
}

void MappingCheck::checkPair(const Line& line)
{
    if (line.headless)
        add(line.number, Effect::Surprise,
            "the key \"" + line.key +
                "\" stands ahead of the first section, where it counts in every section",
            "move it below a section header");
    if (line.key.find('[') != std::string::npos || line.key.find(']') != std::string::npos)
        add(line.number, Effect::Surprise, "a section header with one bracket only, which is read as a key",
            "write both brackets");
    else if (!line.hasEquals)
        add(line.number, Effect::Surprise, "a line without \"=\", which is read as key and value at once",
            "write key=value, or begin a comment with \";\"");
    else if (isMappingSection(line.section) || (line.headless && isEventCode(line.key)))
        checkMapping(line);
    else if (line.section == INI_SEQUENCE_SECTION && line.key != INI_SEQUENCE_KEY)
        add(line.number, Effect::Surprise, "nothing reads the key \"" + line.key + "\" in this section",
            "delete the line");
    checkDuplicate(line);
}

void MappingCheck::checkMapping(const Line& line)
{
    if (!isEventCode(line.key)) {
        add(line.number, Effect::Surprise, "no event has the code \"" + line.key + "\"",
            "write a decimal number from 0 to 65535 without leading zeros");
        return;
    }
    const std::uint32_t number = MappingFile::numberOf(line.value);
    if (number < INI_FIRST_ALERT_NUMBER || number == INI_NO_NUMBER)
        add(line.number, Effect::Surprise,
            "\"" + line.value + "\" is no alert number, so that event " + line.key + " counts as unmapped",
            "write a number from " + std::to_string(INI_FIRST_ALERT_NUMBER) + " to " + HIGHEST_NUMBER);
    else if (!isDigits(line.value))
        add(line.number, Effect::Surprise,
            "what stands behind the number in \"" + line.value + "\" is passed over; the alert is " +
                std::to_string(number),
            "put comments on a line of their own that begins with \";\"");
}

void MappingCheck::checkDuplicate(const Line& line)
{
    const auto [first, isNew] = m_firstLines.try_emplace({line.section, line.key}, line.number);
    if (!isNew)
        add(line.number, Effect::Surprise,
            "the key \"" + line.key + "\" stands in this section already, and line " +
                std::to_string(first->second) + " counts",
            "delete one of the two");
}

void MappingCheck::checkSequenceNumber()
{
    const Line* line = m_file.find(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY);
    if (line == nullptr) {
        if (m_file.fatalOnTheWayTo(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY) != nullptr)
            return; // that line is told already, and worse
        std::size_t place = 1;
        for (const Line& other : m_file.lines())
            if (other.kind == LineKind::Section && other.section == INI_SEQUENCE_SECTION)
                place = other.number;
        add(place, Effect::NoMonitoring, "the sequence number is missing, so that no alert would ever pass",
            "write " + sequencePair(0));
        return;
    }
    const std::uint32_t number = MappingFile::numberOf(line->value);
    if (number == INI_NO_NUMBER)
        add(line->number, Effect::NoMonitoring,
            "the sequence number " + std::to_string(number) +
                " reads like a missing one, so that no alert would ever pass",
            "write the number of the last event seen, or 0");
    else if (!isDigits(line->value))
        add(line->number, Effect::Surprise,
            "the sequence number \"" + line->value + "\" reads as " + std::to_string(number),
            "write a decimal number");
    else if (HIGHEST_SEQUENCE - number < FEW_EVENTS)
        add(line->number, Effect::Surprise,
            "only " + std::to_string(HIGHEST_SEQUENCE - number) +
                " more events can pass, since their numbers end at " + HIGHEST_NUMBER,
            "write the number of the last event seen, or 0");
    checkThatTheNumberIsKept(*line);
}

// The support library has a grammar of its own: what it takes for another line than the plug-in does, it does
// not replace, and the plug-in goes on reading the old number. So this writes a number and reads it.
void MappingCheck::checkThatTheNumberIsKept(const Line& line)
{
    const std::uint32_t present = MappingFile::numberOf(line.value);
    const std::uint32_t next = present == 0 ? 1 : 0;
    devkit::IniText written = m_text;
    if (written.setValue(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY, std::to_string(next)) &&
        MappingFile(written.text()).sequenceNumber() == next)
        return;

    using Kind = devkit::IniText::Kind;
    const auto isAlike = [this](std::size_t number, Kind kind, const char* name) {
        const devkit::IniText::Line& own = m_text.lines()[number - 1];
        return own.kind == kind && own.name == name;
    };
    std::size_t header = line.number;
    for (const Line& other : m_file.lines())
        if (other.kind == LineKind::Section && other.number < line.number)
            header = other.number;
    const bool isHeadersFault = !line.headless && isAlike(line.number, Kind::Pair, INI_SEQUENCE_KEY) &&
                                !isAlike(header, Kind::Header, INI_SEQUENCE_SECTION);
    add(isHeadersFault ? header : line.number, Effect::Repetition,
        "the sequence number is read here, but its writer puts the new one elsewhere, so that each run tells "
        "the "
        "same alerts again",
        "write " + sequencePair(present) + ", each alone on its line and without white space");
}

void MappingCheck::checkThatSomethingIsMapped()
{
    const auto isMapped = [this](const Line& line) {
        if (line.kind != LineKind::Pair || !isEventCode(line.key))
            return false;
        const auto code = static_cast<unsigned int>(std::stoul(line.key));
        return (line.headless || isMappingSection(line.section)) &&
               m_file.alertNumber(line.section, code).has_value();
    };
    const auto& lines = m_file.lines();
    const bool fatal = std::any_of(lines.begin(), lines.end(),
                                   [](const Line& line) { return line.kind == LineKind::Fatal; });
    if (!fatal && std::none_of(lines.begin(), lines.end(), isMapped))
        add(1, Effect::NoMonitoring,
            "no event code is mapped to an alert number, so that no alert would ever be sent",
            "write code=alert lines below " + inBrackets(INI_ADAPTER_SECTION) + ", " +
                inBrackets(INI_PHYSICAL_DISK_SECTION) + " and " + inBrackets(INI_VIRTUAL_DISK_SECTION));
}

} // namespace zarnekctl
