// The data engine's objects: what makes two of them the same one, their tree and links, what is listed and
// what the host hears of it.
#include "Objects.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <morlan.h>
#include <ral.h>

#include <gmock/gmock.h>

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
        {"vd0.0", SDO_OBJTYPE_PHYSICAL_DISK, "pd0.7 pd0.3"},
        {"pd0.3", SDO_OBJTYPE_VIRTUAL_DISK, "vd0.0"},
        {"pd1.7", SDO_OBJTYPE_VIRTUAL_DISK, ""},
        {"ctl2", SDO_OBJTYPE_PHYSICAL_DISK, "256"},
    };
    for (const auto& query : cases)
        EXPECT_EQ(listObjects(query.object, query.type), query.names) << query.object << ' ' << query.type;
}

TEST_F(Tree, InsertingAgainReplacesPropertiesAndKeepsThePlace)
{
    void* const update = make("pd0.7", 4);
    addU32(update, SSPROP_STATE_U32, 1000);
    EXPECT_EQ(RalInsertObject(update, nullptr), 0);
    EXPECT_EQ(insertObject("pd0.7", "", 5), 0);
    EXPECT_EQ(insertObject("ctl0"), 0);
    EXPECT_EQ(linkObjects("vd0.0", "pd0.3"), 0) << "linked already";
    EXPECT_THAT(content(), ElementsAre("ctl0< x2", "ctl1<", "pd0.7:5<ctl0 x3", "pd1.7<ctl1", "pd0.3<ctl0",
                                       "vd0.0<ctl0 [pd0.3] [pd0.7:5]"));
    ral_snapshot* const snapshot = ral_snapshot_create();
    EXPECT_EQ(morlan_sdo_property_count(ral_snapshot_object(snapshot, 2)), 6U)
        << "what came not again is gone";
    ral_snapshot_destroy(snapshot);
}

TEST_F(Tree, ANewParentTakesTheObjectOver)
{
    EXPECT_EQ(insertObject("pd0.7", "ctl1"), 0);
    EXPECT_EQ(listObjects("ctl1", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.7 pd1.7");
    EXPECT_EQ(listObjects("ctl0", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.3");
}

TEST_F(Tree, AnObjectWithoutTypeOrNexusIsKeptApart)
{
    constexpr unsigned short SINGLE[] = {SSPROP_OBJTYPE_U32, SSPROP_NEXUS_U32};
    for (const unsigned short id : SINGLE) {
        void* const object = SMSDOConfigAlloc();
        addU32(object, id, SDO_OBJTYPE_PHYSICAL_DISK);
        EXPECT_EQ(RalInsertObject(object, make("ctl0")), 0);
    }
    insertObject("pd0.9", "ctl0");
    EXPECT_THAT(content(), ElementsAre("ctl0<", "ctl1<", "pd0.7<ctl0", "pd1.7<ctl1", "pd0.3<ctl0",
                                       "vd0.0<ctl0 [pd0.3] [pd0.7]", "pd0.9<ctl0", "!?<", "!?<"));
    EXPECT_EQ(listObjects("ctl0", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.7 pd0.3 pd0.9");
}

TEST_F(Tree, UnknownObjectsChangeNothing)
{
    const std::vector<std::string> before = content();
    const struct {
        const char* what;
        int status;
    } cases[] = {
        {"new object under an unknown parent", insertObject("pd2.0", "ctl2")},
        {"known object under an unknown parent", insertObject("pd0.7", "ctl2", 9)},
        {"under a parent without identity", RalInsertObject(make("pd0.7"), SMSDOConfigAlloc())},
        {"link below", linkObjects("vd0.0", "pd0.4")},
        {"link above", linkObjects("vd0.4", "pd0.3")},
        {"below its own child", insertObject("ctl0", "vd0.0")},
    };
    for (const auto& refused : cases)
        EXPECT_EQ(refused.status, 256) << refused.what;
    EXPECT_EQ(content(), before);
}

TEST_F(Tree, ChangesComeWithBeforeAndAfterAndDeletingTakesAllBelow)
{
    std::vector<std::string> changes;
    ral_set_change_sink(
        [](void* context, ral_change change, const void* before, const void* after) {
            // The engine holds the new state by now, and may be looked into.
            const std::string holds = std::to_string(content().size());
            static_cast<std::vector<std::string>*>(context)->push_back(
                std::to_string(change) + ' ' + nameOf(before) + ' ' + nameOf(after) + ' ' + holds);
        },
        &changes);
    insertObject("ctl1", "", 3);
    insertObject("ctl2");
    insertObject("pd0.1", "ctl9");
    RalInsertObject(SMSDOConfigAlloc(), nullptr);
    for (const char* name : {"pd0.3", "ctl0"}) {
        void* const object = make(name);
        EXPECT_EQ(RalDeleteObject(object, 1, 0), 0);
        morlan_sdo_free(object);
    }
    EXPECT_THAT(changes, ElementsAre("1 ctl1 ctl1:3 6", "0 none ctl2 7", "3 none ? 8", "2 pd0.3 none 7",
                                     "2 pd0.7 none 4", "2 vd0.0 none 4", "2 ctl0 none 4"));
    EXPECT_THAT(content(), ElementsAre("ctl1:3< x2", "pd1.7<ctl1:3", "ctl2<", "!?<"));
}

TEST_F(Tree, AListIsACopyUntilItIsGivenBack)
{
    void* const controller = make("ctl0");
    void** objects = nullptr;
    unsigned int count = 0;
    ASSERT_EQ(RalListAssociatedObjects(controller, SDO_OBJTYPE_PHYSICAL_DISK, &objects, &count), 0);
    ASSERT_EQ(count, 2U);
    addU32(objects[0], SSPROP_STATUS_U32, 8);
    EXPECT_EQ(listObjects("ctl0", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.7 pd0.3");
    insertObject("pd0.7", "", 5);
    EXPECT_EQ(nameOf(objects[0]), "pd0.7:8");
    objects[1] = nullptr; // whatever the caller makes of its list
    EXPECT_EQ(RalListFree(objects, 2), 0);
    morlan_sdo_free(controller);
}

TEST_F(Tree, SeveralThreadsMayInsertLinkAndList)
{
    constexpr unsigned int THREADS = 4;
    constexpr unsigned int DISKS = 25;
    // Calls are reported one after the other, so a sink needs no lock of its own.
    unsigned int inserted = 0;
    ral_set_change_sink(
        [](void* context, ral_change, const void*, const void*) { ++*static_cast<unsigned int*>(context); },
        &inserted);
    std::vector<std::thread> threads;
    for (unsigned int thread = 0; thread < THREADS; ++thread)
        threads.emplace_back([thread] {
            for (unsigned int disk = 0; disk < DISKS; ++disk) {
                const std::string name = "pd1." + std::to_string(1000 + disk * THREADS + thread);
                EXPECT_EQ(insertObject(name, "ctl1"), 0);
                EXPECT_EQ(linkObjects("vd0.0", name), 0);
                EXPECT_NE(listObjects("ctl1", SDO_OBJTYPE_PHYSICAL_DISK).find(name), std::string::npos);
                content();
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(inserted, THREADS * DISKS);
}

} // namespace
