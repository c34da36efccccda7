#ifndef ZARNEK_SUPPORT_CLOGGER_H
#define ZARNEK_SUPPORT_CLOGGER_H

#include <sstream>
#include <string>

namespace stg
{

// The one logging facility: a stream front end to the platform's DebugPrint. Text is composed by chained
// insertions and goes out as one line when the character '\n' is inserted; there is no level and no switch.
//
// One instance, stg::lout, serves all threads. Each insertion and each taking of a finished line is one step
// that no other thread sees half done, so memory is safe whatever threads do; a line is not: lines of
// different threads can interleave, and writeLog on one thread discards a line that another is composing. For
// the same reason a chain must not call a function that logs: fetch values first, then compose. DebugPrint is
// called outside of these steps, and may be called from several threads at once.
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
    // Hands the composed line to DebugPrint if it has so many bytes.
    void writeLineFrom(std::size_t size);
    // Bytes composed so far; the composed line, false without memory for it; its end. Under the lock.
    std::size_t lineSize() const;
    bool takeLine(std::string& line);
    void dropLine();

    std::ostringstream m_stream;
};

extern CLogger lout;

// Begins a message line: the label and ": ". What is inserted behind it ends the line, and must not log
// itself.
CLogger& message(const char* label);

} // namespace stg

#endif
