// Gathers what a text sink receives.
#ifndef ZARNEK_TESTS_LINELOG_H
#define ZARNEK_TESTS_LINELOG_H

#include <mutex>
#include <string>
#include <vector>

class LineLog
{
  public:
    // A devkit_text_sink; the context is the log.
    static void sink(void* log, const char* text)
    {
        auto* const self = static_cast<LineLog*>(log);
        const std::lock_guard<std::mutex> lock(self->m_mutex);
        self->m_lines.emplace_back(text);
    }

    std::vector<std::string> lines() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_lines;
    }

  private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
};

#endif
