// The tree of objects, their links and what is listed.
#include "Objects.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <morlan.h>
#include <ral.h>

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

namespace
{

using testing::ElementsAre;

class Tree : public RalTest
{
  protected:
    // ctl0 with two disks and a virtual disk that is linked with both; ctl1 with a disk.
    void SetUp() override
    {
        insertObject("ctl0");
        insertObject("ctl1");
        insertObject("pd0.7", "ctl0");
        insertObject("pd1.7", "ctl1");
        insertObject("pd0.3", "ctl0");
        insertObject("vd0.0", "ctl0");
        linkObjects("vd0.0", "pd0.3");
        linkObjects("vd0.0", "pd0.7");
    }
};

TEST_F(Tree, ListsWhatIsDirectlyAssociated)
{
    const struct {
        const char* object;
        unsigned int type;
        const char* names;
    } cases[] = {
        {"", SDO_OBJTYPE_CONTROLLER, "ctl0 ctl1"},
        {"", SDO_OBJTYPE_PHYSICAL_DISK, ""},
        {"ctl0", SDO_OBJTYPE_PHYSICAL_DISK, "pd0.7 pd0.3"},
        {"ctl0", SDO_OBJTYPE_VIRTUAL_DISK, "vd0.0"},
        {"vd0.0", SDO_OBJTYPE_PHYSICAL_DISK, "pd0.7 pd0.3"},
        {"pd0.3", SDO_OBJTYPE_VIRTUAL_DISK, "vd0.0"},
        {"pd1.7", SDO_OBJTYPE_VIRTUAL_DISK, ""},
        {"ctl2", SDO_OBJTYPE_PHYSICAL_DISK, "256"},
    };
    for (const auto& query : cases)
        EXPECT_EQ(listObjects(query.object, query.type), query.names) << query.object << ' ' << query.type;

    EXPECT_EQ(linkObjects("pd0.7", "vd0.0"), 0);
    EXPECT_EQ(insertObject("pd0.9", "vd0.0"), 0);
    EXPECT_EQ(linkObjects("vd0.0", "pd0.9"), 0);
    EXPECT_EQ(listObjects("vd0.0", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.7 pd0.3 pd0.9") << "each once";
}

TEST_F(Tree, InsertingAgainReplacesPropertiesAndKeepsThePlace)
{
    void* const update = make("pd0.7", 4);
    addU32(update, SSPROP_SIZE_U64, 1000);
    EXPECT_EQ(RalInsertObject(update, nullptr), 0);
    EXPECT_EQ(insertObject("vd0.0", "ctl0", 2), 0);
    EXPECT_EQ(insertObject("pd0.7", "", 5), 0);
    EXPECT_EQ(insertObject("ctl0"), 0);
    EXPECT_THAT(content(), ElementsAre("ctl0< x2", "ctl1<", "pd0.7:5<ctl0 x3", "pd1.7<ctl1", "pd0.3<ctl0",
                                       "vd0.0:2<ctl0 [pd0.3] [pd0.7:5] x2"));
    ral_snapshot* const snapshot = ral_snapshot_create();
    EXPECT_EQ(morlan_sdo_property_count(ral_snapshot_object(snapshot, 2)), 6U)
        << "what came not again is gone";
    ral_snapshot_destroy(snapshot);

    EXPECT_EQ(linkObjects("vd0.0", "pd0.3"), 0) << "linked already";
    EXPECT_EQ(content().back(), "vd0.0:2<ctl0 [pd0.3] [pd0.7:5] x2");
}

TEST_F(Tree, ANewParentTakesTheObjectOver)
{
    EXPECT_EQ(insertObject("pd0.7", "ctl1"), 0);
    EXPECT_EQ(listObjects("ctl1", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.7 pd1.7");
    EXPECT_EQ(listObjects("ctl0", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.3");
    EXPECT_EQ(insertObject("ctl1", "vd0.0"), 0);
    EXPECT_EQ(listObjects("", SDO_OBJTYPE_CONTROLLER), "ctl0");
    EXPECT_EQ(listObjects("vd0.0", SDO_OBJTYPE_CONTROLLER), "ctl1");
}

TEST_F(Tree, UnknownObjectsChangeNothing)
{
    const std::vector<std::string> before = content();
    void* const known = make("ctl0");
    const struct {
        const char* what;
        int status;
    } cases[] = {
        {"new object under an unknown parent", insertObject("pd2.0", "ctl2")},
        {"known object under an unknown parent", insertObject("pd0.7", "ctl2", 9)},
        {"under a parent without identity", RalInsertObject(make("pd0.7"), SMSDOConfigAlloc())},
        {"below its own child", insertObject("ctl0", "vd0.0")},
        {"null object", RalInsertObject(nullptr, make("ctl0"))},
        {"delete", deleteObject("pd0.4")},
        {"link below", linkObjects("vd0.0", "pd0.4")},
        {"link above", linkObjects("vd0.4", "pd0.3")},
        {"link with itself", linkObjects("ctl0", "ctl0")},
        {"link null", RalLinkObjects(known, nullptr)},
        {"notify null", RalSendNotification(nullptr)},
        {"free no list", RalListFree(nullptr, 1)},
        {"free a foreign list", RalListFree(const_cast<void**>(&known), 1)},
    };
    for (const auto& refused : cases)
        EXPECT_EQ(refused.status, 256) << refused.what;
    EXPECT_EQ(content(), before);

    void* const both = make("pd2.0");
    EXPECT_EQ(RalInsertObject(both, both), 256) << "freed once";
    morlan_sdo_free(known);
}

TEST_F(Tree, DeletingTakesAllBelowAndTheLinks)
{
    insertObject("pd0.9", "vd0.0");
    linkObjects("pd1.7", "vd0.0");
    std::vector<std::string> deleted;
    ral_set_change_sink(
        [](void* context, ral_change change, const void* before, const void* after) {
            EXPECT_EQ(change, RAL_CHANGE_DELETED);
            EXPECT_EQ(after, nullptr);
            static_cast<std::vector<std::string>*>(context)->push_back(nameOf(before));
        },
        &deleted);
    EXPECT_EQ(deleteObject("pd0.3"), 0);
    EXPECT_EQ(listObjects("vd0.0", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.7 pd1.7 pd0.9");
    EXPECT_EQ(deleteObject("ctl0"), 0);
    EXPECT_THAT(deleted, ElementsAre("pd0.3", "pd0.7", "pd0.9", "vd0.0", "ctl0"));
    EXPECT_THAT(content(), ElementsAre("ctl1<", "pd1.7<ctl1"));

    ral_set_change_sink(nullptr, nullptr);
    EXPECT_EQ(insertObject("ctl0"), 0);
    EXPECT_EQ(listObjects("", SDO_OBJTYPE_CONTROLLER), "ctl1 ctl0") << "its first insertion is a new one";
    EXPECT_EQ(listObjects("ctl0", SDO_OBJTYPE_PHYSICAL_DISK), "");
}

TEST_F(Tree, AListIsACopyUntilItIsGivenBack)
{
    void* const controller = make("ctl0");
    void** objects = nullptr;
    unsigned int count = 0;
    ASSERT_EQ(RalListAssociatedObjects(controller, SDO_OBJTYPE_PHYSICAL_DISK, &objects, &count), 0);
    ASSERT_EQ(count, 2U);
    EXPECT_EQ(ral_live_lists(), 1U);
    addU32(objects[0], SSPROP_STATUS_U32, 8);
    EXPECT_EQ(listObjects("ctl0", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.7 pd0.3");
    deleteObject("ctl0");
    EXPECT_EQ(nameOf(objects[0]), "pd0.7:8");

    EXPECT_EQ(RalListFree(objects, 1), 256) << "not the count that was given";
    EXPECT_EQ(ral_live_lists(), 1U);
    objects[1] = nullptr; // whatever the caller makes of its list
    EXPECT_EQ(RalListFree(objects, 2), 0);
    EXPECT_EQ(ral_live_lists(), 0U);
    EXPECT_EQ(RalListFree(objects, 2), 256) << "given back already";
    morlan_sdo_free(controller);
}

TEST_F(Tree, SeveralThreadsMayInsertListAndDelete)
{
    constexpr int kThreads = 4;
    constexpr int kDisks = 25;
    // Calls are reported one after the other, so a sink needs no lock of its own.
    std::vector<std::string> inserted;
    ral_set_change_sink(
        [](void* context, ral_change change, const void*, const void* after) {
            if (change == RAL_CHANGE_INSERTED)
                static_cast<std::vector<std::string>*>(context)->push_back(nameOf(after));
        },
        &inserted);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([thread] {
            for (int disk = 0; disk < kDisks; ++disk) {
                const std::string name = "pd1." + std::to_string(1000 + disk * kThreads + thread);
                EXPECT_EQ(insertObject(name, "ctl1"), 0);
                EXPECT_EQ(linkObjects("vd0.0", name), 0);
                EXPECT_NE(listObjects("ctl1", SDO_OBJTYPE_PHYSICAL_DISK).find(name), std::string::npos);
                content();
            }
            EXPECT_EQ(deleteObject("pd1." + std::to_string(1000 + thread)), 0);
        });
    for (std::thread& thread : threads)
        thread.join();
    ASSERT_EQ(inserted.size(), std::size_t{kThreads * kDisks});
    std::string names = "pd1.7";
    for (const std::string& name : inserted)
        if (name >= "pd1.1004") // each thread has deleted its first
            names += ' ' + name;
    EXPECT_EQ(listObjects("ctl1", SDO_OBJTYPE_PHYSICAL_DISK), names) << "the sink's order is the engine's";
}

} // namespace
