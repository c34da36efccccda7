// The data engine's objects: what makes two of them the same one, their tree and links, what is listed and
// what the host hears of it. Objects go by names, such as "controller 0" and "disk 0:3".
#include "common/SdoObject.h"
#include "ral/ral_inspect.h"

#include <ral.h>

#include <gmock/gmock.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace
{

using testing::ElementsAre;

constexpr int UNKNOWN_OBJECT = 256;

// An object that its name identifies, if that says what it is. The empty name is null.
void* make(const std::string& name)
{
    if (name.empty())
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

int insert(const std::string& name, const std::string& parent = {})
{
    return RalInsertObject(make(name), make(parent));
}

// A property that no identity contains changes.
int insertWithStatus(const std::string& name, std::uint32_t status, const std::string& parent = {})
{
    void* const object = make(name);
    addU32(object, SSPROP_STATUS_U32, status);
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

// The names in the list; the status instead if that is not 0. No name lists the top.
std::vector<std::string> associated(const std::string& name, unsigned int type)
{
    void** objects = nullptr;
    unsigned int count = 0;
    const int status = RalListAssociatedObjects(lent(name).get(), type, &objects, &count);
    std::vector<std::string> names;
    for (unsigned int i = 0; i < count; ++i)
        names.push_back(nameOf(objects[i]));
    EXPECT_EQ(objects == nullptr, count == 0);
    EXPECT_EQ(RalListFree(objects, count), 0);
    return status == 0 ? names : std::vector<std::string>{std::to_string(status)};
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

class Tree : public testing::Test
{
  protected:
    Tree()
    {
        insert("controller 0");
        insert("controller 1");
        insert("disk 0:7", "controller 0");
        insert("disk 1:7", "controller 1");
        insert("disk 0:3", "controller 0");
        insert("drive 0:0", "controller 0");
        link("drive 0:0", "disk 0:3");
        link("drive 0:0", "disk 0:7");
    }
    ~Tree() override
    {
        EXPECT_EQ(ral_live_lists(), 0U);
        ral_reset();
        morlan_reset();
        EXPECT_EQ(morlan_live_sdo_objects(), 0U);
    }
};

TEST_F(Tree, InsertingAgainReplacesPropertiesAndKeepsThePlace)
{
    EXPECT_EQ(insertWithStatus("disk 0:7", 4), 0);
    EXPECT_EQ(insertWithStatus("disk 0:3", 5), 0);
    EXPECT_EQ(insert("disk 0:3"), 0);
    EXPECT_EQ(insert("controller 0"), 0);
    EXPECT_EQ(link("drive 0:0", "disk 0:3"), 0) << "linked already";
    EXPECT_THAT(content(), ElementsAre("controller 0, 2 times", "controller 1",
                                       "disk 0:7 (4) under controller 0, 2 times",
                                       "disk 1:7 under controller 1", "disk 0:3 under controller 0, 3 times",
                                       "drive 0:0 under controller 0, above disk 0:3, above disk 0:7 (4)"));
    EXPECT_EQ(insert("disk 0:7", "controller 1"), 0);
    EXPECT_THAT(associated("controller 1", SDO_OBJTYPE_PHYSICAL_DISK), ElementsAre("disk 0:7", "disk 1:7"))
        << "a new parent takes the object over";
    EXPECT_THAT(associated("controller 0", SDO_OBJTYPE_PHYSICAL_DISK), ElementsAre("disk 0:3"));
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
    EXPECT_THAT(associated("controller 0", SDO_OBJTYPE_PHYSICAL_DISK), ElementsAre("disk 0:7", "disk 0:3"));
    const std::vector<std::string> after = content();
    ASSERT_EQ(after.size(), before.size() + 1000);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin()));
    EXPECT_EQ(after[before.size()], "stray 4, incomplete");
    EXPECT_EQ(after.back(), "type alone, incomplete");
}

TEST_F(Tree, UnknownObjectsChangeNothing)
{
    const std::vector<std::string> before = content();
    const struct {
        const char* what;
        int status;
    } cases[] = {
        {"new object under an unknown parent", insert("disk 2:0", "controller 2")},
        {"known object under an unknown parent", insertWithStatus("disk 0:7", 9, "controller 2")},
        {"under a parent without identity", insert("disk 0:7", "stray")},
        {"nothing, under a parent", insert("", "controller 0")},
        {"nothing at the top", insert("")},
        {"link below", link("drive 0:0", "disk 0:4")},
        {"link above", link("drive 0:4", "disk 0:3")},
        {"link of nothing", link("", "disk 0:3")},
        {"below its own child", insert("controller 0", "drive 0:0")},
        {"deletion", remove("disk 0:4")},
        {"notification of nothing", RalSendNotification(nullptr)},
    };
    for (const auto& refused : cases)
        EXPECT_EQ(refused.status, UNKNOWN_OBJECT) << refused.what;
    EXPECT_EQ(content(), before);
}

TEST_F(Tree, ChangesComeWithBeforeAndAfterAndDeletingTakesAllBelow)
{
    std::vector<std::string> changes;
    ral_set_change_sink(
        [](void* context, ral_change change, const void* before, const void* after) {
            constexpr const char* KINDS[] = {"inserted: ", "updated: ", "deleted: ", "incomplete: "};
            // The engine holds the new state by now, and may be looked into.
            static_cast<std::vector<std::string>*>(context)->push_back(KINDS[change] + nameOf(before) +
                                                                       " to " + nameOf(after) + " of " +
                                                                       std::to_string(content().size()));
        },
        &changes);
    insertWithStatus("controller 1", 3);
    insert("controller 2");
    insert("disk 0:1", "controller 9");
    insert("stray");
    EXPECT_EQ(remove("disk 0:3"), 0);
    EXPECT_EQ(remove("controller 0"), 0);
    EXPECT_THAT(changes,
                ElementsAre("updated: controller 1 to controller 1 (3) of 6",
                            "inserted: nothing to controller 2 of 7", "incomplete: nothing to stray of 8",
                            "deleted: disk 0:3 to nothing of 7", "deleted: disk 0:7 to nothing of 4",
                            "deleted: drive 0:0 to nothing of 4", "deleted: controller 0 to nothing of 4"));
    EXPECT_THAT(content(), ElementsAre("controller 1 (3), 2 times", "disk 1:7 under controller 1 (3)",
                                       "controller 2", "stray, incomplete"));
}

TEST_F(Tree, AListIsACopyUntilItIsGivenBack)
{
    void** objects = nullptr;
    unsigned int count = 0;
    ASSERT_EQ(RalListAssociatedObjects(nullptr, SDO_OBJTYPE_CONTROLLER, &objects, &count), 0);
    ASSERT_EQ(count, 2U);
    addU32(objects[0], SSPROP_STATUS_U32, 8);
    EXPECT_THAT(associated("", SDO_OBJTYPE_CONTROLLER), ElementsAre("controller 0", "controller 1"));
    insertWithStatus("controller 0", 5);
    EXPECT_EQ(nameOf(objects[0]), "controller 0 (8)");
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
