#include "support/LogScope.h"

#include "support/CLogger.h"

#include <exception>
#include <new>
#include <string>

namespace stg
{

LogScope::LogScope(const char* label) : LogScope(label, label) {}

LogScope::LogScope(const char* entryLabel, const char* exitLabel)
    : m_exitLabel(exitLabel), m_exceptionsAtEntry(std::uncaught_exceptions())
{
    lout.writeLog(std::string(entryLabel) + " ENTRY ");
}

LogScope::~LogScope()
{
    if (m_exitLabel == nullptr || std::uncaught_exceptions() != m_exceptionsAtEntry)
        return;
    try {
        lout.writeLog(std::string(m_exitLabel) + " EXIT ");
    } catch (const std::bad_alloc&) { // no memory for the line: it is lost, the process is not
    }
}

} // namespace stg
