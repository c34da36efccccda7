#ifndef ZARNEK_SUPPORT_CLOGGER_H
#define ZARNEK_SUPPORT_CLOGGER_H

#include <sstream>
#include <string>

namespace stg
{

// The one logging facility: a stream front end to the platform's DebugPrint. Text is composed by chained
// insertions and goes out as one line when the character '\n' is inserted; there is no level and no switch.
//
// One instance, stg::lout, serves all threads and takes no lock: lines of different threads can interleave,
// and writeLog on one thread discards a line that another is composing. For the same reason a chain must not
// call a function that logs: fetch values first, then compose.
class CLogger
{
  public:
    // A line that never ends is emitted when it reaches this many bytes.
    static constexpr std::size_t BUFFER_LIMIT = 0x100000;

    CLogger();
    CLogger(const CLogger&) = delete;
    CLogger& operator=(const CLogger&) = delete;
    ~CLogger() = default;

    // Hands `text` to DebugPrint, or the composed line if `text` is empty. The composed line is gone either
    // way.
    void writeLog(std::string text);

    CLogger& operator<<(const char* text);
    CLogger& operator<<(const std::string& text);
    // Narrowed: each character is cut to its low byte.
    CLogger& operator<<(const std::wstring& text);
    CLogger& operator<<(int value);
    CLogger& operator<<(short value);
    CLogger& operator<<(unsigned int value);
    CLogger& operator<<(unsigned short value);
    CLogger& operator<<(unsigned long value);
    CLogger& operator<<(unsigned long long value);
    // Shows as 0 or 1.
    CLogger& operator<<(bool value);
    // Goes into the text as the raw byte, not as a number.
    CLogger& operator<<(unsigned char value);
    // '\n' ends the line and is not part of it; an empty line is not written.
    CLogger& operator<<(char value);
    // There is none for pointers; without these they would show as the Boolean 1.
    CLogger& operator<<(const void* pointer) = delete;
    CLogger& operator<<(const wchar_t* text) = delete;

  private:
    template <class Value>
    CLogger& insert(const Value& value);
    // Bytes composed so far.
    std::size_t lineSize() const;

    std::ostringstream m_stream;
};

extern CLogger lout;

// Begins a message line: the label and ": ". What is inserted behind it ends the line, and must not log
// itself.
CLogger& message(const char* label);

} // namespace stg

#endif
