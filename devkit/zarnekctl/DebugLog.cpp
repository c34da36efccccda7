#include "zarnekctl/DebugLog.h"

#include "zarnekctl/Text.h"

#include <iostream>

namespace zarnekctl
{

namespace
{

constexpr std::size_t remembered = 10;

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

} // namespace

void DebugLog::add(const char* text)
{
    m_trace.line("log", text);
    const std::string line = escaped(text);
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_echo)
        std::cerr << line << '\n';
    if (endsWith(line, " ENTRY ") || endsWith(line, " EXIT "))
        return;
    m_last.push_back(line);
    if (m_last.size() > remembered)
        m_last.pop_front();
}

std::vector<std::string> DebugLog::lastLines() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return {m_last.begin(), m_last.end()};
}

} // namespace zarnekctl
