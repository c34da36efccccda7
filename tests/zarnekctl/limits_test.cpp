// What a full disk or a hostile text may not do to the user.
#include "common/TempFolder.h"
#include "common/Utf8.h"
#include "zarnekctl/config/ConfigFolder.h"
#include "zarnekctl/config/Failure.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/resource.h>

using namespace testing;
using namespace zarnekctl;

TEST(ConfigFolder, aCopyThatRanOutOfSpaceIsNotKept)
{
    const TempFolder prefix;
    std::filesystem::create_directories(prefix.path("share/zarnek/config"));
    for (const char* file : {"private.ini", "MarvelAlertMapping.ini"})
        prefix.write(std::string("share/zarnek/config/") + file, std::string(5000, ';'));
    const ConfigFolder config(prefix.path("state"));
    rlimit former = {};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit full = {1000, former.rlim_max};
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    std::string message;
    try {
        config.prepare(Installation(prefix.path("bin/zarnekctl")));
    } catch (const Failure& failure) {
        message = failure.what();
    }
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerHandler);
    EXPECT_THAT(message, HasSubstr("private.ini: cannot copy the shipped file here: File too large"));
    EXPECT_TRUE(std::filesystem::is_empty(config.path()));
}

TEST(Text, ControlsOfTheWritingDirectionAreEscaped)
{
    for (const char* control : {"\u061c", "\u200e", "\u200f", "\u202a", "\u202e", "\u2066", "\u2069"})
        EXPECT_EQ(devkit::escaped(control).substr(0, 2), "\\x") << devkit::escaped(control, true);
    for (const char* harmless : {"\u061b", "\u200d", "\u2029", "\u202f", "\u2065", "\u206a"})
        EXPECT_EQ(devkit::escaped(harmless), harmless);
}
