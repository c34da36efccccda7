// The private INI and the INI writer.
#include "common/DataRows.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <cstring>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace
{

// The value as the plug-in reads it; nothing when the call fails.
std::optional<std::string> privateValue(const char* section, const char* key)
{
    char buffer[32] = {};
    unsigned int size = sizeof buffer;
    if (SSGetPrivateIniValue(section, key, buffer, &size) != 0)
        return std::nullopt;
    EXPECT_EQ(size, std::strlen(buffer) + 1);
    return buffer;
}

class Ini : public testing::Test
{
  protected:
    void TearDown() override { morlan_reset(); }

    int writeKey(const std::string& file, const std::string& value, const std::string& section = "A",
                 const std::string& key = "k") const
    {
        return SMWriteINIPathFileValue(section.c_str(), key.c_str(), 1, value.c_str(),
                                       static_cast<unsigned int>(value.size() + 1), folder.path(file).c_str(),
                                       1);
    }

    const TempFolder folder;
};

TEST_F(Ini, CutsAValueToTheRoomAndLeavesTheBufferOnFailure)
{
    folder.write("private.ini", "[A]\nkey=abcdef\n");
    setenv("MORLAN_PRIVATE_INI", folder.path("private.ini").c_str(), 1);
    const struct {
        const char* key;
        unsigned int room;
        const char* buffer;
        unsigned int size;
    } cases[] = {
        {"key", 7, "abcdef", 7}, {"key", 6, "abcde", 6},      {"key", 1, "", 1},
        {"key", 0, "before", 0}, {"missing", 7, "before", 7},
    };
    for (const auto& read : cases) {
        char buffer[16] = "before";
        unsigned int size = read.room;
        EXPECT_EQ(SSGetPrivateIniValue("A", read.key, buffer, &size) != 0,
                  !std::strcmp(read.buffer, "before"));
        EXPECT_STREQ(buffer, read.buffer) << read.key << ' ' << read.room;
        EXPECT_EQ(size, read.size) << read.key << ' ' << read.room;
    }
    for (const char* none : {static_cast<const char*>(nullptr), "/no such/file.ini"}) {
        morlan_set_private_ini(none);
        EXPECT_EQ(privateValue("A", "key"), std::nullopt) << "the host's word comes before the environment's";
    }
    unsetenv("MORLAN_PRIVATE_INI");
}

TEST_F(Ini, WritesOneKeyAndKeepsTheRest)
{
    for (const auto& row : dataRows("tests/morlan/writes")) { // of the key k of the section A
        const std::string what = row.at("what");
        std::filesystem::remove(folder.path("f.ini"));
        if (row.contains("before"))
            folder.write("f.ini", row.at("before"));
        EXPECT_EQ(writeKey("f.ini", row.at("value")), 0) << what;
        EXPECT_EQ(folder.read("f.ini"), row.at("after")) << what;
        EXPECT_EQ(folder.entries(), 1U) << what;
    }
}

TEST_F(Ini, KeepsModeAndLinks)
{
    folder.write("target.ini", "[A]\nk=1\n");
    chmod(folder.path("target.ini").c_str(), 0640);
    std::filesystem::create_symlink("target.ini", folder.path("near.ini"));
    std::filesystem::create_symlink(folder.path("near.ini"), folder.path("far.ini"));
    std::filesystem::create_symlink("new.ini", folder.path("dangling.ini"));
    const mode_t mask = umask(027);
    for (const char* file : {"far.ini", "dangling.ini", "fresh.ini"})
        EXPECT_EQ(writeKey(file, "2"), 0) << file;
    umask(mask);
    for (const char* link : {"far.ini", "near.ini", "dangling.ini"})
        EXPECT_TRUE(std::filesystem::is_symlink(folder.path(link))) << link;
    for (const char* file : {"target.ini", "new.ini", "fresh.ini"}) {
        EXPECT_EQ(folder.read(file), "[A]\nk=2\n") << file;
        EXPECT_EQ(static_cast<unsigned int>(std::filesystem::status(folder.path(file)).permissions()), 0640U);
    }
}

TEST_F(Ini, AFailedWriteLeavesEverythingAsItWas)
{
    const std::string before = "[A]\nk=1\n" + std::string(4096, ';') + "\n";
    folder.write("f.ini", before);
    std::filesystem::create_directory(folder.path("folder.ini"));
    std::filesystem::create_symlink("circle.ini", folder.path("circle.ini"));
    mkfifo(folder.path("pipe.ini").c_str(), 0600);
    for (const char* file : {"missing/f.ini", "f.ini/f.ini", "folder.ini", "circle.ini", "pipe.ini"})
        EXPECT_NE(writeKey(file, "2"), 0) << file;

    // A disk that fills up in the middle of the write.
    rlimit former = {};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit full = {1000, former.rlim_max};
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    for (const char* file : {"f.ini", "fresh.ini"})
        EXPECT_NE(writeKey(file, std::string(2000, '2')), 0) << file;
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerHandler);
    EXPECT_EQ(folder.read("f.ini"), before);
    EXPECT_EQ(folder.entries(), 4U);
}

TEST_F(Ini, WhatIsSwappedOrPlantedLosesAndNothingOutsideIsWritten)
{
    for (const char* name : {"config", "outside"})
        std::filesystem::create_directory(folder.path(name));
    folder.write("outside/f.ini", "[B]\n");
    const std::string planted = folder.path("config/planted.ini");
    std::filesystem::create_symlink("../outside/f.ini", planted);
    const bool isAnothers = lchown(planted.c_str(), 54321, 54321) == 0; // for root alone
    EXPECT_EQ(writeKey("config/planted.ini", "1") != 0, isAnothers);
    morlan_set_install_path(folder.path("config").c_str());
    std::filesystem::rename(folder.path("config"), folder.path("moved"));
    std::filesystem::create_symlink("outside", folder.path("config"));
    EXPECT_EQ(writeKey("config/f.ini", "2"), 0);
    EXPECT_EQ(folder.read("moved/f.ini"), "[A]\nk=2\n");
    EXPECT_EQ(folder.read("outside/f.ini"), isAnothers ? "[B]\n" : "[B]\n[A]\nk=1\n");
}

TEST_F(Ini, ReadersSeeOldOrNewAndWritersLoseNothing)
{
    folder.write("f.ini", std::string(60000, '#') + "\n[End]\nwhole=1\n");
    morlan_set_private_ini(folder.path("f.ini").c_str());
    std::atomic<int> writing{4};
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 4; ++writer)
        writers.emplace_back([&, section = "W" + std::to_string(writer)] {
            for (char key = 'a'; key < 'u'; ++key)
                writeKey("f.ini", "v", section, {key});
            --writing;
        });
    while (writing > 0)
        EXPECT_EQ(privateValue("End", "whole"), "1");
    for (std::thread& writer : writers)
        writer.join();
    for (const char* section : {"W0", "W1", "W2", "W3"})
        for (char key = 'a'; key < 'u'; ++key)
            EXPECT_EQ(privateValue(section, std::string{key}.c_str()), "v") << section << key;
}

} // namespace
