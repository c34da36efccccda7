// Scenarios that must not load: every file of the folder has its message in the table beside it.
#include "mvsim/SimTest.h"

#include <map>

namespace
{

using BrokenTest = SimTest;

TEST_F(BrokenTest, EachFileHasItsMessage)
{
    const std::filesystem::path folder = MVSIM_TESTS_FOLDER "/broken";
    std::map<std::string, std::string> expected;
    std::ifstream table(folder / "messages.txt");
    for (std::string line; std::getline(table, line);) {
        const std::size_t colon = line.find(": ");
        ASSERT_NE(colon, std::string::npos) << line;
        expected[line.substr(0, colon)] = line.substr(colon + 2);
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".json") {
            const std::string name = entry.path().filename().string();
            EXPECT_EQ(tryLoad(entry.path().string()), entry.path().string() + ": " + expected[name]);
            expected.erase(name);
        }
    }
    EXPECT_THAT(expected, testing::IsEmpty()) << "in the table only";
    EXPECT_EQ(MV_Adapter_GetCount(), 0U);
}

} // namespace
