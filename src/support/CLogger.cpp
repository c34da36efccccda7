#include "support/CLogger.h"

#include "support/TextTools.h"

#include <morlan.h>

#include <algorithm>
#include <locale>
#include <mutex>
#include <new>
#include <utility>

namespace stg
{

CLogger lout;

namespace
{

// Held for one insertion or the taking of one line, never for a line, and never while DebugPrint runs.
std::mutex g_composing;

} // namespace

CLogger::CLogger() : m_stream(std::ios_base::out | std::ios_base::ate)
{
    m_stream.imbue(std::locale::classic()); // numbers look the same whatever locale the host has set
}

bool CLogger::takeLine(std::string& line)
{
    bool taken = true;
    try {
        line = m_stream.str();
    } catch (const std::bad_alloc&) { // no memory for the line: it is lost, the process is not
        taken = false;
    }
    dropLine();
    return taken;
}

void CLogger::dropLine()
{
    m_stream.clear();
    m_stream.str(std::string());
}

void CLogger::writeLog(std::string text)
{
    {
        const std::lock_guard<std::mutex> lock(g_composing);
        if (!text.empty())
            dropLine();
        else if (!takeLine(text))
            return;
    }
    DebugPrint(text.c_str());
}

std::size_t CLogger::lineSize() const
{
    const auto position = m_stream.rdbuf()->pubseekoff(0, std::ios_base::cur, std::ios_base::out);
    return static_cast<std::size_t>(std::max<std::streamoff>(position, 0));
}

void CLogger::writeLineFrom(std::size_t size)
{
    std::string line;
    {
        const std::lock_guard<std::mutex> lock(g_composing);
        if (lineSize() < size || !takeLine(line))
            return;
    }
    DebugPrint(line.c_str());
}

template <class Value>
CLogger& CLogger::insert(const Value& value)
{
    std::size_t size = 0;
    {
        const std::lock_guard<std::mutex> lock(g_composing);
        m_stream << value;
        size = lineSize();
    }
    if (size >= BUFFER_LIMIT)
        writeLineFrom(BUFFER_LIMIT);
    return *this;
}

CLogger& CLogger::operator<<(const char* text)
{
    return insert(text);
}
CLogger& CLogger::operator<<(const std::string& text)
{
    return insert(text);
}
CLogger& CLogger::operator<<(const std::wstring& text)
{
    return insert(convertToString(text));
}
CLogger& CLogger::operator<<(int value)
{
    return insert(value);
}
CLogger& CLogger::operator<<(short value)
{
    return insert(value);
}
CLogger& CLogger::operator<<(unsigned int value)
{
    return insert(value);
}
CLogger& CLogger::operator<<(unsigned short value)
{
    return insert(value);
}
CLogger& CLogger::operator<<(unsigned long value)
{
    return insert(value);
}
CLogger& CLogger::operator<<(unsigned long long value)
{
    return insert(value);
}
CLogger& CLogger::operator<<(bool value)
{
    return insert(static_cast<unsigned int>(value));
}
CLogger& CLogger::operator<<(unsigned char value)
{
    return insert(value);
}

CLogger& CLogger::operator<<(char value)
{
    if (value != '\n')
        return insert(value);
    writeLineFrom(1);
    return *this;
}

CLogger& message(const char* label)
{
    return lout << label << ": ";
}

} // namespace stg
