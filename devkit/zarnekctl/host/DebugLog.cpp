#include "zarnekctl/host/DebugLog.h"

#include "common/Utf8.h"
#include "common/text.h"

#include <iostream>
#include <optional>
#include <string_view>
#include <utility>

namespace zarnekctl
{

namespace
{

constexpr std::size_t REMEMBERED = 10;
constexpr std::string_view REFUSAL_MARK = "mvErrorDisplay() FAILED: ";

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// What the line gives as the reason of a refused call; nothing for any other line.
std::optional<std::string_view> refusalIn(std::string_view line)
{
    const std::size_t mark = line.find(REFUSAL_MARK);
    if (mark == std::string_view::npos)
        return std::nullopt;
    const std::string_view reason = line.substr(mark + REFUSAL_MARK.size());
    return reason.substr(0, reason.find_last_not_of(' ') + 1);
}

} // namespace

std::string describe(const Refusals& refusals)
{
    std::string text;
    for (const std::string& reason : refusals.reasons)
        text += (text.empty() ? ": " : ", ") + reason;
    return devkit::counted(refusals.count, "call") + text;
}

void DebugLog::add(const char* text)
{
    m_trace.line("log", text);
    const std::string_view line = text;
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_echo)
        std::cerr << devkit::escaped(line) << '\n';
    if (endsWith(line, " ENTRY ") || endsWith(line, " EXIT "))
        return;
    m_last.emplace_back(line);
    if (m_last.size() > REMEMBERED)
        m_last.pop_front();
    if (const auto reason = refusalIn(line)) {
        ++m_refusals.count;
        m_refusals.reasons.insert(devkit::escaped(*reason));
        m_refusals.lastLines.assign(m_last.begin(), m_last.end());
    }
}

std::vector<std::string> DebugLog::lastLines() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return {m_last.begin(), m_last.end()};
}

Refusals DebugLog::takeRefusals()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_refusals, {});
}

} // namespace zarnekctl
