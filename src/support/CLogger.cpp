#include "support/CLogger.h"

#include "support/TextTools.h"

#include <morlan.h>

#include <locale>
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
    if (text.empty())
        text = m_stream.str();
    DebugPrint(text.c_str());
    m_stream.clear();
    m_stream.str(std::string());
}

template <class Value>
CLogger& CLogger::insert(const Value& value)
{
    m_stream << value;
    if (m_stream.str().size() >= BUFFER_LIMIT)
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
    if (!m_stream.str().empty())
        writeLog(std::string());
    return *this;
}

} // namespace stg
