// The private INI and the INI writer.
#include "common/TempFolder.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <cstring>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

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

int writeValue(const std::string& path, const char* section, const char* key, const std::string& value)
{
    return SMWriteINIPathFileValue(section, key, 1, value.c_str(),
                                   static_cast<unsigned int>(value.size() + 1), path.c_str(), 1);
}

class Ini : public testing::Test
{
  protected:
    void TearDown() override { morlan_reset(); }

    const TempFolder folder;
};

TEST_F(Ini, ReadsTheUsualGrammar)
{
    folder.write("private.ini", "early=0\n; key=commented\n[ Vendor ]\r\n  \t id \t=\t 9 \t\r\n#id=8\nid=7\n"
                                "text=a = b ; c\nempty=\nno equals sign\n[vendor]\nid=4\n"
                                "[Vendor]\nlate=3\n[broken\nlast=2");
    morlan_set_private_ini(folder.path("private.ini").c_str());
    const struct {
        const char *section, *key;
        std::optional<std::string> value;
    } cases[] = {
        {"Vendor", "id", "9"},   {"vendor", "id", "4"},   {"Vendor", "text", "a = b ; c"},
        {"Vendor", "empty", ""}, {"Vendor", "late", "3"}, {"Vendor", "last", "2"},
        {"", "early", "0"},      {"Vendor", "early", {}}, {"Vendor", "ID", {}},
        {"Vendor", "; key", {}}, {"Vendor", "#id", {}},   {"Vendor", "no equals sign", {}},
        {"None", "id", {}},
    };
    for (const auto& read : cases)
        EXPECT_EQ(privateValue(read.section, read.key), read.value) << read.section << ' ' << read.key;
}

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
    const struct {
        const char *what, *before; // null: no file
        const char *section, *key, *value;
        const char* after;
    } cases[] = {
        {"no file", nullptr, "A", "k", "1", "[A]\nk=1\n"},
        {"replace", "; top\n[A]\nj=0\nk=1\nk=2\n[B]\nk=3\n", "A", "k", "77",
         "; top\n[A]\nj=0\nk=77\nk=2\n[B]\nk=3\n"},
        {"replace in the style of the line", "[A]\n\tk = 1  \n", "A", "k", "2", "[A]\n\tk = 2\n"},
        {"fill an empty value", "[A]\nk =\nl=\n", "A", "k", "2", "[A]\nk =2\nl=\n"},
        {"comments are no keys", "[A]\n;k=1\n#k=2\n", "A", "k", "3", "[A]\n;k=1\n#k=2\nk=3\n"},
        {"append between comments and blank lines", "[a]\n[A]\nK=0\n; more\n\n \t\n[B]\n", "A", "k", "1",
         "[a]\n[A]\nK=0\n; more\nk=1\n\n \t\n[B]\n"},
        {"append, no line end", "[A]\nj=0", "A", "k", "1", "[A]\nj=0\nk=1"},
        {"replace, no line end", "[A]\nk=0", "A", "k", "1", "[A]\nk=1"},
        {"new section, no line end", "[A]\nk=0", "B", "k", "1", "[A]\nk=0\n[B]\nk=1"},
        {"CR LF, replace", "[A]\r\nk=0\r\nl=1\r\n", "A", "k", "", "[A]\r\nk=\r\nl=1\r\n"},
        {"CR LF, new section, no line end", "[A]\r\nj=0", "B", "k", "1", "[A]\r\nj=0\r\n[B]\r\nk=1"},
        {"twice, key in the second", "[A]\ni=0\n[B]\n[A]\nk=0\n", "A", "k", "1", "[A]\ni=0\n[B]\n[A]\nk=1\n"},
        {"twice, key in none", "[A]\ni=0\n[B]\n[A]\nj=0\n", "A", "k", "1", "[A]\ni=0\nk=1\n[B]\n[A]\nj=0\n"},
        {"what fits no grammar stays", "nonsense\n[A\n=\n]\n[A]\n\x01\x80\n", "A", "k", "1",
         "nonsense\n[A\n=\n]\n[A]\n\x01\x80\nk=1\n"},
    };
    for (const auto& write : cases) {
        std::filesystem::remove(folder.path("f.ini"));
        if (write.before != nullptr)
            folder.write("f.ini", write.before);
        EXPECT_EQ(writeValue(folder.path("f.ini"), write.section, write.key, write.value), 0) << write.what;
        EXPECT_EQ(folder.read("f.ini"), write.after) << write.what;
        EXPECT_EQ(folder.entries(), 1U) << write.what;
    }
}

TEST_F(Ini, KeepsModeAndLinks)
{
    folder.write("target.ini", "[A]\nk=1\n");
    chmod(folder.path("target.ini").c_str(), 0640);
    std::filesystem::create_symlink("target.ini", folder.path("near.ini"));
    std::filesystem::create_symlink(folder.path("near.ini"), folder.path("far.ini"));
    std::filesystem::create_symlink("new.ini", folder.path("dangling.ini"));

    EXPECT_EQ(writeValue(folder.path("far.ini"), "A", "k", "2"), 0);
    EXPECT_EQ(folder.read("target.ini"), "[A]\nk=2\n");
    EXPECT_EQ(writeValue(folder.path("dangling.ini"), "A", "k", "3"), 0);
    EXPECT_EQ(folder.read("new.ini"), "[A]\nk=3\n");
    for (const char* link : {"far.ini", "near.ini", "dangling.ini"})
        EXPECT_TRUE(std::filesystem::is_symlink(folder.path(link))) << link;

    const mode_t mask = umask(027);
    EXPECT_EQ(writeValue(folder.path("fresh.ini"), "A", "k", "1"), 0);
    umask(mask);
    for (const char* file : {"target.ini", "fresh.ini"})
        EXPECT_EQ(static_cast<unsigned int>(std::filesystem::status(folder.path(file)).permissions()), 0640U);
}

TEST_F(Ini, AFailedWriteLeavesEverythingAsItWas)
{
    const std::string before = "[A]\nk=1\n" + std::string(4096, ';') + "\n";
    folder.write("f.ini", before);
    std::filesystem::create_directory(folder.path("folder.ini"));
    std::filesystem::create_symlink("circle.ini", folder.path("circle.ini"));
    for (const char* path : {"missing/f.ini", "f.ini/f.ini", "folder.ini", "circle.ini"})
        EXPECT_NE(writeValue(folder.path(path), "A", "k", "2"), 0) << path;

    // A disk that fills up in the middle of the write.
    rlimit former = {};
    getrlimit(RLIMIT_FSIZE, &former);
    rlimit full = former;
    full.rlim_cur = 1000;
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    const int status = writeValue(folder.path("f.ini"), "A", "k", "2");
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerHandler);
    EXPECT_NE(status, 0);

    EXPECT_EQ(folder.read("f.ini"), before);
    EXPECT_EQ(folder.entries(), 3U);
}

TEST_F(Ini, ReadersSeeOldOrNewAndWritersLoseNothing)
{
    constexpr int WRITERS = 4;
    constexpr int KEYS = 20;
    const std::string filler(60000, '#');
    folder.write("f.ini", filler + "\n[End]\nwhole=1\n");
    std::atomic<int> writing{WRITERS};
    std::vector<std::thread> writers;
    for (int writer = 0; writer < WRITERS; ++writer)
        writers.emplace_back([&, section = "W" + std::to_string(writer)] {
            for (int key = 0; key < KEYS; ++key)
                writeValue(folder.path("f.ini"), section.c_str(), std::to_string(key).c_str(), "v");
            --writing;
        });
    morlan_set_private_ini(folder.path("f.ini").c_str());
    int torn = 0;
    while (writing > 0)
        torn += privateValue("End", "whole") == "1" ? 0 : 1;
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(torn, 0);
    for (int writer = 0; writer < WRITERS; ++writer)
        for (int key = 0; key < KEYS; ++key)
            EXPECT_EQ(privateValue(("W" + std::to_string(writer)).c_str(), std::to_string(key).c_str()), "v");
}

} // namespace
