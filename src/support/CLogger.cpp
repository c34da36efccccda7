#include "support/CLogger.h"

#include "support/TextTools.h"

#include <morlan.h>

#include <algorithm>
#include <locale>
#include <new>
#include <utility>

namespace stg
{

CLogger lout;

CLogger::CLogger() : m_stream(std::ios_base::out | std::ios_base::ate)
{
    m_stream.imbue(std::locale::classic()); // numbers look the same whatever locale the host has set
}

void CLogger::writeLog(std::string text)
{
    try {
        if (text.empty())
            text = m_stream.str();
        DebugPrint(text.c_str());
    } catch (const std::bad_alloc&) { // no memory for the line: it is lost, the process is not
    }
    m_stream.clear();
    m_stream.str(std::string());
}

std::size_t CLogger::lineSize() const
{
    const auto position = m_stream.rdbuf()->pubseekoff(0, std::ios_base::cur, std::ios_base::out);
    return static_cast<std::size_t>(std::max<std::streamoff>(position, 0));
}

template <class Value>
CLogger& CLogger::insert(const Value& value)
{
    m_stream << value;
    if (lineSize() >= BUFFER_LIMIT)
        writeLog(std::string());
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
    if (lineSize() != 0)
        writeLog(std::string());
    return *this;
}

CLogger& message(const char* label)
{
    return lout << label << ": ";
}

} // namespace stg
