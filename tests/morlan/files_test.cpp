// What the files themselves can do to a read or a write of an INI.
#include "common/TempFolder.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gtest/gtest.h>

#include <unistd.h>

namespace
{

TEST(Files, AWritePassesOverWhatAFormerProcessOfTheSameIdLeftBehind)
{
    constexpr unsigned int LEFT = 300;
    const TempFolder folder;
    for (unsigned int count = 1; count <= LEFT; ++count)
        folder.write(".f.ini." + std::to_string(getpid()) + '-' + std::to_string(count) + ".tmp", "other");
    EXPECT_EQ(SMWriteINIPathFileValue("A", "k", 0, "1", 2, folder.path("f.ini").c_str(), 0), 0);
    EXPECT_EQ(folder.read("f.ini"), "[A]\nk=1\n");
    EXPECT_EQ(folder.entries(), LEFT + 1) << "what this process did not make stays, what it made is gone";
}

TEST(Files, AFileIsReadWholeOrNotAtAll)
{
    const TempFolder folder;
    const std::string file = folder.path("f.ini");
    morlan_set_private_ini(file.c_str());
    const std::string text = "[A]\nk=1\n";
    constexpr std::uintmax_t MOST = 1024 * 1024;
    for (const std::uintmax_t size : {MOST, MOST + 1, 3072 * MOST}) {
        folder.write("f.ini", text + ";\n");
        std::filesystem::resize_file(file, size);
        char value[8] = {};
        unsigned int room = sizeof value;
        EXPECT_EQ(SSGetPrivateIniValue("A", "k", value, &room) == 0, size <= MOST) << size;
        EXPECT_EQ(SMWriteINIPathFileValue("A", "k", 0, "1", 2, file.c_str(), 0) == 0, size <= MOST) << size;
        EXPECT_EQ(std::filesystem::file_size(file), size) << "what was not read is not replaced";
    }
    morlan_reset();
}

} // namespace
