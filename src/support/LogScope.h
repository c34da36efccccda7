#ifndef ZARNEK_SUPPORT_LOGSCOPE_H
#define ZARNEK_SUPPORT_LOGSCOPE_H

#include "support/CLogger.h"

namespace stg
{

// Frames a function body in the log: label plus " ENTRY " when built, label plus " EXIT " when it goes. A
// body that an exception leaves has no EXIT line. Declared first in a body, it goes last, so that what the
// body's objects log when they die stands within the frame.
//
// Labels are literals: the scope keeps the pointers.
class LogScope
{
  public:
    explicit LogScope(const char* label);
    // For the functions whose two labels differ.
    LogScope(const char* entryLabel, const char* exitLabel);
    LogScope(const LogScope&) = delete;
    LogScope& operator=(const LogScope&) = delete;
    ~LogScope();

    // Begins a message line with the label of the entry.
    CLogger& message() const { return stg::message(m_entryLabel); }
    // This return writes no EXIT line.
    void skipExit() noexcept { m_exitLabel = nullptr; }

  private:
    const char* m_entryLabel;
    const char* m_exitLabel;
    int m_exceptionsAtEntry;
};

} // namespace stg

#endif
