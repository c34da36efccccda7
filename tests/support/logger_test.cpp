#include "common/PluginTest.h"
#include "morlan/morlan_inspect.h"
#include "support/CCriticalSection.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/TextTools.h"

#include <stdexcept>

using testing::ElementsAre;

namespace
{

class LoggerTest : public PluginTest
{
  protected:
    stg::CLogger m_logger;
};

TEST_F(LoggerTest, ComposesALineFromEveryOperand)
{
    m_logger << "text " << std::string("string ") << std::wstring(L"wide\x141 ") << -5 << ' '
             << static_cast<short>(-6) << ' ' << 4294967295U << ' ' << static_cast<unsigned short>(65535)
             << ' ' << 7UL << ' ' << 18446744073709551615ULL << ' ' << true << false << ' '
             << static_cast<unsigned char>(8) << "|" << '\n';
    EXPECT_THAT(log(),
                ElementsAre("text string wide\x41 -5 -6 4294967295 65535 7 18446744073709551615 10 \x08|"));
}

TEST_F(LoggerTest, WritesALineAtItsEndOrAtTheBuffersLimit)
{
    const std::string almost(stg::CLogger::BUFFER_LIMIT - 1, 'x');
    m_logger << '\n'; // an empty line is not written
    m_logger << "lost";
    m_logger.writeLog("written at once");
    m_logger << "composed";
    m_logger.writeLog("");
    m_logger << '\n';
    m_logger << almost << 'y' << "rest" << '\n';
    EXPECT_THAT(log(), ElementsAre("written at once", "composed", almost + 'y', "rest"));
}

TEST_F(LoggerTest, FramesABodyButNotOneLeftByAnException)
{
    {
        const stg::LogScope frame("outer", "other");
        stg::LogScope skipped("inner");
        skipped.skipExit();
    }
    EXPECT_THROW(
        {
            const stg::LogScope frame("thrower");
            throw std::runtime_error("out");
        },
        std::runtime_error);
    EXPECT_THAT(log(), ElementsAre("outer ENTRY ", "inner ENTRY ", "other EXIT ", "thrower ENTRY "));
}

using CriticalSectionTest = PluginTest;

TEST_F(CriticalSectionTest, MakesTheMutexOnceAndAgainAfterItsEnd)
{
    for (const unsigned int made : {1U, 1U, 2U}) {
        if (made == 2) {
            CCriticalSection::destroyMutex();
        }
        const CCriticalSection section;
        EXPECT_EQ(morlan_call_count("SMMutexCreate"), made);
    }
    EXPECT_EQ(morlan_call_count("SMMutexUnLock"), 3U);
}

TEST(TextToolsTest, TrimStripAndWiden)
{
    std::wstring wide = L"\t \t x\ty \t ";
    const std::wstring trimmed = L" \t x\ty "; // the blanks' turn comes once, ahead of the tabs'
    EXPECT_EQ(stg::removeBeginingAndTrailingSpaces(wide), trimmed);
    EXPECT_EQ(wide, trimmed);
    EXPECT_EQ(stg::removeAllSpaces(wide), L"xy");
    EXPECT_EQ(wide, L"xy");
    std::string text = "\x7F\x80 \xFF";
    EXPECT_EQ(stg::convertToWString(text), (std::wstring{0x7F, wchar_t(-128), L' ', wchar_t(-1)}));
    EXPECT_EQ(stg::stripUnicode(text), "\x7F ");
    EXPECT_EQ(text, "\x7F ");
}

TEST(TextToolsTest, ReadsNumbersAsA32BitLibraryDoes)
{
    struct Case {
        const char* text;
        unsigned int asUnsigned;
        int asSigned;
    };
    for (const Case& c : {Case{"", 0, 0}, Case{"12x", 12, 12}, Case{"4294967305", 0xFFFFFFFFU, 0x7FFFFFFF},
                          Case{"-5", 4294967291U, -5}, Case{"-5000000000", 0xFFFFFFFFU, -0x7FFFFFFF - 1}}) {
        EXPECT_EQ(stg::toUnsigned32(c.text), c.asUnsigned) << c.text;
        EXPECT_EQ(stg::toSigned32(c.text), c.asSigned) << c.text;
    }
}

} // namespace
