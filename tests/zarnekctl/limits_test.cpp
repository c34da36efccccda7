// What a hostile text may not do to the user.
#include "common/Utf8.h"

#include <gmock/gmock.h>

TEST(Text, ControlsOfTheWritingDirectionAreEscaped)
{
    for (const char* control : {"\u061c", "\u200e", "\u200f", "\u202a", "\u202e", "\u2066", "\u2069"})
        EXPECT_EQ(devkit::escaped(control).substr(0, 2), "\\x") << devkit::escaped(control, true);
    for (const char* harmless : {"\u061b", "\u200d", "\u2029", "\u202f", "\u2065", "\u206a"})
        EXPECT_EQ(devkit::escaped(harmless), harmless);
}
