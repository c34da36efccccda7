// Where the configuration is kept, and what a first run does there.
#include "common/TempFolder.h"
#include "zarnekctl/ConfigCheck.h"
#include "zarnekctl/ConfigFolder.h"
#include "zarnekctl/Failure.h"

#include <gmock/gmock.h>

using namespace zarnekctl;
namespace fs = std::filesystem;

namespace
{

// Sets a variable of the environment for as long as it lives.
class Variable
{
  public:
    Variable(const char* name, const char* value) : m_name(name)
    {
        const char* old = std::getenv(name);
        m_old = old == nullptr ? std::optional<std::string>() : old;
        set(value);
    }
    ~Variable() { set(m_old ? m_old->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    void set(const char* value)
    {
        if (value == nullptr)
            unsetenv(m_name);
        else
            setenv(m_name, value, 1);
    }

    const char* m_name;
    std::optional<std::string> m_old;
};

} // namespace

TEST(ConfigFolder, isTheUsersUnlessNamed)
{
    const Variable home("HOME", "/home/somebody");
    {
        const Variable state("XDG_STATE_HOME", "/state");
        EXPECT_EQ(ConfigFolder(std::nullopt).path(), "/state/zarnek");
        EXPECT_EQ(ConfigFolder(std::string("/else/where/")).path(), "/else/where");
    }
    for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative"}) {
        const Variable state("XDG_STATE_HOME", unusable);
        EXPECT_EQ(ConfigFolder(std::nullopt).path(), "/home/somebody/.local/state/zarnek");
        const Variable noHome("HOME", nullptr);
        EXPECT_THROW(ConfigFolder{std::nullopt}, Failure);
    }
}

TEST(ConfigFolder, isFilledOnceFromWhatIsShipped)
{
    const TempFolder prefix;
    fs::create_directories(prefix.path("share/zarnek/config"));
    prefix.write("share/zarnek/config/private.ini", "[VendorID]\n");
    prefix.write("share/zarnek/config/MarvelAlertMapping.ini", "shipped\n");
    fs::permissions(prefix.path("share/zarnek/config/MarvelAlertMapping.ini"), fs::perms::owner_read);
    const Installation installation(prefix.path("bin/zarnekctl"));

    const ConfigFolder config(prefix.path("user/state"));
    config.prepare(installation);
    EXPECT_EQ(prefix.read("user/state/private.ini"), "[VendorID]\n");
    EXPECT_NE(fs::status(config.mapping()).permissions() & fs::perms::owner_write, fs::perms::none);

    prefix.write("user/state/MarvelAlertMapping.ini", "mine\n");
    config.prepare(installation);
    EXPECT_EQ(prefix.read("user/state/MarvelAlertMapping.ini"), "mine\n");

    prefix.write("file", "");
    EXPECT_THROW(ConfigFolder(prefix.path("file/below")).prepare(installation), Failure);
}

TEST(ConfigCheck, refusesByWhatTheRunNeeds)
{
    const TempFolder folder;
    folder.write("private.ini", "[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=libmvsim\n");
    folder.write("MarvelAlertMapping.ini", "[Adapter]\n1=2047\n1=2048\n");
    const ConfigCheck check{ConfigFolder(folder.path())};
    EXPECT_EQ(check.worst(), Effect::NoMonitoring);
    EXPECT_EQ(check.lines().size(), 4U);
    EXPECT_NO_THROW(check.refuse(Effect::NoDiscovery));
    try {
        check.refuse(Effect::NoMonitoring);
        FAIL() << "not refused";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.status(), ExitStatus::BadInput);
        ASSERT_EQ(failure.log().size(), 2U);
        EXPECT_THAT(failure.log()[0],
                    testing::StartsWith(folder.path("MarvelAlertMapping.ini") + ":1: error: "));
    }
}
