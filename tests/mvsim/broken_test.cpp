// Scenarios that must not load: every file of the folder has its message in the table beside it.
#include "mvsim/SimTest.h"

#include <set>

namespace
{

using BrokenTest = SimTest;

TEST_F(BrokenTest, EachFileHasItsMessage)
{
    const std::string folder = MVSIM_TESTS_FOLDER "/broken/";
    std::ifstream table(folder + "messages.txt");
    std::set<std::string> files;
    for (std::string line; std::getline(table, line);) {
        const std::size_t colon = line.find(": ");
        const std::string file = folder + line.substr(0, colon);
        EXPECT_EQ(tryLoad(file), file + line.substr(colon));
        files.insert(file);
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        EXPECT_NE(files.count(entry.path().string()), entry.path().extension() == ".txt") << entry.path();
    EXPECT_EQ(MV_Adapter_GetCount(), 0U);
}

} // namespace
