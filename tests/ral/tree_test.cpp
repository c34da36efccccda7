// The data engine's objects: what makes two of them the same one, their tree and links, what is listed and
// what the host hears of it. Objects go by names, such as "controller 0" and "disk 0:3".
#include "common/SdoObject.h"
#include "ral/ral_inspect.h"

#include <ral.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace
{

constexpr int UNKNOWN_OBJECT = 256;

// An object that its name identifies, if that says what it is.
void* make(const std::string& name)
{
    if (name == "nothing")
        return nullptr;
    void* const object = SMSDOConfigAlloc();
    addText(object, SSPROP_NAME_ASTRING, name);
    for (const auto& [kind, type] :
         {std::pair("controller", SDO_OBJTYPE_CONTROLLER), std::pair("disk", SDO_OBJTYPE_PHYSICAL_DISK),
          std::pair("drive", SDO_OBJTYPE_VIRTUAL_DISK)})
        if (name.rfind(kind, 0) == 0) {
            addU32(object, SSPROP_OBJTYPE_U32, type);
            addU32(object, SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER);
            addNexus(object, {SSPROP_NAME_ASTRING}, sizeof(std::uint32_t));
        }
    return object;
}

// With its status, if it has one: "disk 0:3 (4)".
std::string nameOf(const void* object)
{
    if (object == nullptr)
        return "nothing";
    const unsigned int status = numberOf(object, SSPROP_STATUS_U32);
    return valuesOf(object).at(SSPROP_NAME_ASTRING) +
           (status == NO_NUMBER ? "" : " (" + std::to_string(status) + ")");
}

// With a status, which no identity contains, unless that is empty.
int insert(const std::string& name, const std::string& parent = "nothing", const std::string& status = {})
{
    void* const object = make(name);
    if (!status.empty())
        addU32(object, SSPROP_STATUS_U32, static_cast<std::uint32_t>(std::stoul(status)));
    return RalInsertObject(object, make(parent));
}

// For calls that do not take their objects over.
std::unique_ptr<void, void (*)(void*)> lent(const std::string& name)
{
    return {make(name), morlan_sdo_free};
}

int link(const std::string& upper, const std::string& lower)
{
    return RalLinkObjects(lent(upper).get(), lent(lower).get());
}

int remove(const std::string& name)
{
    return RalDeleteObject(lent(name).get(), 1, 0);
}

// The names in the list; the status instead if that is not 0.
std::string associated(const std::string& name, unsigned int type)
{
    void** objects = nullptr;
    unsigned int count = 0;
    const int status = RalListAssociatedObjects(lent(name).get(), type, &objects, &count);
    std::string names = status == 0 ? "" : std::to_string(status);
    for (unsigned int i = 0; i < count; ++i)
        names += (i == 0 ? "" : "; ") + nameOf(objects[i]);
    EXPECT_EQ(objects == nullptr, count == 0);
    EXPECT_EQ(RalListFree(objects, count), 0);
    return names;
}

// All that the data engine holds, such as "drive 0:1 under controller 0, above disk 0:3, twice".
std::vector<std::string> content()
{
    std::vector<std::string> lines;
    ral_snapshot* const snapshot = ral_snapshot_create();
    const auto nameAt = [snapshot](int index) {
        return nameOf(ral_snapshot_object(snapshot, static_cast<unsigned int>(index)));
    };
    for (unsigned int i = 0; i < ral_snapshot_count(snapshot); ++i) {
        std::string line = nameAt(static_cast<int>(i));
        const int parent = ral_snapshot_parent(snapshot, i);
        line += parent < 0 ? "" : " under " + nameAt(parent);
        for (unsigned int below = 0; below < ral_snapshot_link_count(snapshot, i); ++below)
            line += ", above " + nameAt(ral_snapshot_link(snapshot, i, below));
        const unsigned int insertions = ral_snapshot_insertions(snapshot, i);
        line += insertions == 1 ? "" : ", " + std::to_string(insertions) + " times";
        line += ral_snapshot_incomplete(snapshot, i) != 0 ? ", incomplete" : "";
        lines.push_back(line);
    }
    ral_snapshot_destroy(snapshot);
    return lines;
}

// What stands ahead of a word and behind it; without it the default.
std::pair<std::string, std::string> cut(const std::string& text, const std::string& word,
                                        const std::string& without = {})
{
    const auto place = text.find(word);
    if (place == std::string::npos)
        return {text, without};
    return {text.substr(0, place), text.substr(place + word.size())};
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "; ") + line;
    return text;
}

class Tree : public testing::Test
{
  protected:
    Tree() { plant(); }
    ~Tree() override
    {
        EXPECT_EQ(ral_live_lists(), 0U);
        ral_reset();
        morlan_reset();
        EXPECT_EQ(morlan_live_sdo_objects(), 0U);
    }
    void plant()
    {
        ral_reset();
        for (const auto& [name, parent] :
             {std::pair("controller 0", "nothing"), std::pair("controller 1", "nothing"),
              std::pair("disk 0:7", "controller 0"), std::pair("disk 1:7", "controller 1"),
              std::pair("disk 0:3", "controller 0"), std::pair("drive 0:0", "controller 0")})
            insert(name, parent);
        link("drive 0:0", "disk 0:3");
        link("drive 0:0", "disk 0:7");
        m_changes.clear();
        ral_set_change_sink(
            [](void* context, ral_change change, const void* before, const void* after) {
                constexpr const char* KINDS[] = {"inserted: ", "updated: ", "deleted: ", "incomplete: "};
                // The engine holds the new state by now, and may be looked into.
                static_cast<std::vector<std::string>*>(context)->push_back(KINDS[change] + nameOf(before) +
                                                                           " to " + nameOf(after) + " of " +
                                                                           std::to_string(content().size()));
            },
            &m_changes);
    }
    // What a line of the file gives.
    std::string run(const std::string& line)
    {
        const auto [rest, parent] = cut(line, " under ", "nothing");
        const auto [verb, words] = cut(rest, " ");
        const auto [name, status] = cut(words, " with ");
        const auto [upper, lower] = cut(words, " above ");
        return verb == "insert"   ? std::to_string(insert(name, parent, status))
               : verb == "link"   ? std::to_string(link(upper, lower))
               : verb == "remove" ? std::to_string(remove(name))
               : verb == "notify" ? std::to_string(RalSendNotification(make(name)))
               : verb == "disks"  ? associated(parent, SDO_OBJTYPE_PHYSICAL_DISK)
               : verb == "heard"  ? joined(m_changes)
                                  : joined(content());
    }

    std::vector<std::string> m_changes;
};

TEST_F(Tree, DoesWhatItsFileTells)
{
    std::ifstream file(ZARNEK_SOURCE_DIR "/tests/ral/tree.txt");
    for (std::string line; std::getline(file, line);) {
        const auto [command, result] = cut(line, " > ");
        if (line.empty()) {
            plant();
        } else if (line.front() != '#') {
            EXPECT_EQ(run(command), result) << line;
        }
    }
}

TEST_F(Tree, TheNexusMakesTheIdentity)
{
    const std::vector<unsigned int> two = {SSPROP_SLOTNUM_U32, SSPROP_STATE_U32};
    const struct {
        std::size_t nexusBytes;
        const char* identity;
    } cases[] = {
        {8, "772/9 24810=3 24580=absent"}, {7, "772/9 24810=3"}, {4, "772/9 24810=3"}, {3, ""}, {1, ""},
    };
    for (const auto& row : cases) {
        const auto disk = lent("disk 0:3");
        addU32(disk.get(), SSPROP_SLOTNUM_U32, 3);
        addNexus(disk.get(), two, row.nexusBytes);
        std::array<char, 100> text{};
        EXPECT_EQ(ral_object_identity(disk.get(), text.data(), text.size()), std::strlen(row.identity));
        EXPECT_STREQ(text.data(), row.identity) << row.nexusBytes;
    }
}

TEST_F(Tree, TheLastObjectsWithoutIdentityAreKeptApart)
{
    const std::vector<std::string> before = content();
    for (unsigned int i = 0; i < 1003; ++i)
        EXPECT_EQ(insert("stray " + std::to_string(i), "controller 0"), 0);
    void* const typeAlone = make("type alone");
    addU32(typeAlone, SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK);
    EXPECT_EQ(RalInsertObject(typeAlone, nullptr), 0);
    EXPECT_EQ(ral_incomplete_count(), 1004U);
    EXPECT_EQ(associated("controller 0", SDO_OBJTYPE_PHYSICAL_DISK), "disk 0:7; disk 0:3");
    const std::vector<std::string> after = content();
    ASSERT_EQ(after.size(), before.size() + 1000);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin()));
    EXPECT_EQ(after[before.size()], "stray 4, incomplete");
    EXPECT_EQ(after.back(), "type alone, incomplete");
}

TEST_F(Tree, AListIsACopyUntilItIsGivenBack)
{
    void** objects = nullptr;
    unsigned int count = 0;
    ASSERT_EQ(RalListAssociatedObjects(nullptr, SDO_OBJTYPE_CONTROLLER, &objects, &count), 0);
    ASSERT_EQ(count, 2U);
    addU32(objects[0], SSPROP_STATUS_U32, 8);
    EXPECT_EQ(associated("nothing", SDO_OBJTYPE_CONTROLLER), "controller 0; controller 1");
    insert("controller 0", "nothing", "5");
    EXPECT_EQ(nameOf(objects[0]), "controller 0 (8)");
    insert("controller 1");
    // Objects from a list are known by what they say, as long as what they name is there.
    addText(objects[0], SSPROP_NAME_ASTRING, "controller 1");
    EXPECT_EQ(RalDeleteObject(objects[0], 1, 0), 0);
    EXPECT_EQ(RalDeleteObject(objects[1], 1, 0), UNKNOWN_OBJECT);
    objects[1] = nullptr; // whatever the caller makes of its list
    for (const unsigned int wrong : {0U, 1U, 3U})
        EXPECT_EQ(RalListFree(objects, wrong), UNKNOWN_OBJECT) << wrong;
    EXPECT_EQ(ral_live_lists(), 1U);
    EXPECT_EQ(RalListFree(objects, 2), 0);
    EXPECT_EQ(RalListFree(objects, 2), UNKNOWN_OBJECT) << "given back already";
}

TEST_F(Tree, SeveralThreadsMayInsertLinkAndList)
{
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([thread] {
            for (int disk = 0; disk < 25; ++disk) {
                const std::string name = "disk 1:" + std::to_string(1000 + disk * 4 + thread);
                EXPECT_EQ(insert(name, "controller 1"), 0);
                EXPECT_EQ(link("drive 0:0", name), 0);
                content();
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(content().size(), 106U);
}

} // namespace
