#include "support/LogScope.h"

#include <exception>
#include <new>
#include <string>

namespace stg
{

namespace
{

// A frame that finds no memory is lost, as any line is: frames stand in destructors too.
void writeFrame(const char* label, const char* word)
{
    try {
        lout.writeLog(std::string(label) + word);
    } catch (const std::bad_alloc&) {
    }
}

} // namespace

LogScope::LogScope(const char* label) : LogScope(label, label) {}

LogScope::LogScope(const char* entryLabel, const char* exitLabel)
    : m_entryLabel(entryLabel), m_exitLabel(exitLabel), m_exceptionsAtEntry(std::uncaught_exceptions())
{
    writeFrame(entryLabel, " ENTRY ");
}

LogScope::~LogScope()
{
    if (m_exitLabel != nullptr && std::uncaught_exceptions() == m_exceptionsAtEntry)
        writeFrame(m_exitLabel, " EXIT ");
}

} // namespace stg
