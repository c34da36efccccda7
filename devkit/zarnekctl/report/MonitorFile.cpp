#include "zarnekctl/report/MonitorFile.h"

#include "zarnekctl/config/Failure.h"

#include <iostream>
#include <sstream>

namespace zarnekctl
{

void MonitorFile::alert(const Alert& alert)
{
    m_story.add(alert);
}

void MonitorFile::state(const MonitorState& state)
{
    m_story.polls = state.polls;
    m_story.refusedCalls = state.refusedCalls;
    m_story.running = state.running;
    std::ostringstream content;
    m_form(m_story)->print(state.system, content);
    try {
        m_file.write(content.str());
        m_wasWritten = true;
        m_failure.clear();
    } catch (const Failure& failure) {
        if (!m_wasWritten)
            throw;
        if (m_failure.empty())
            std::cerr << "zarnekctl: " << failure.what() << "; it still shows an older state\n";
        m_failure = failure.what();
    }
}

void MonitorFile::requireWritten() const
{
    if (!m_failure.empty())
        throw Failure(ExitStatus::PluginFailed, m_failure);
}

} // namespace zarnekctl
