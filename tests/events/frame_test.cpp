// The event frame: threads as values, what is built for a subject, and the order in which it is taken down.
#include "common/PluginTest.h"
#include "events/CEventManager_Helper.h"
#include "events/CMarvelEventManager.h"
#include "events/IEventManager.h"
#include "events/IEvtSubject.h"
#include "morlan/morlan_inspect.h"

using testing::ElementsAre;

namespace
{

struct Subject : IEvtSubject {
    explicit Subject(unsigned int id) { setSubjectID(id); }
    short process() override { return 0; }
};

// A place where an observer could be; the frame only points at it.
IEvtObserver* observerAt(unsigned int index)
{
    static unsigned char places[2];
    return reinterpret_cast<IEvtObserver*>(&places[index]);
}

// A vendor's manager whose subject has the number 7.
struct Manager : IEventManager {
    using IEventManager::m_CntrlIdList;

    void setLilObjPtr() override {}
    short createEventSubject(IEvtSubject*& subject) override
    {
        EXPECT_EQ(subject, nullptr);
        if (m_statuses[0] == 0)
            subject = m_last = new Subject(7);
        return m_statuses[0];
    }
    short createEventObserver(IEvtSubject* subject, short (*callback)(ICommand&)) override
    {
        EXPECT_TRUE(subject == m_last && callback == takeAction);
        m_pObserver = observerAt(0);
        return m_statuses[1];
    }

    IEvtSubject* m_last = nullptr;
    short m_statuses[2] = {}; // of subject and observer
};

using EventFrameTest = PluginTest;

void countRuns(void* runs)
{
    ++*static_cast<int*>(runs);
}

TEST_F(EventFrameTest, AThreadIsAValueThatStartsAndStops)
{
    int runs = 0;
    Thread thread(countRuns, &runs), other(nullptr, nullptr);
    morlan_fail_call("SMThreadStart", 1, 1, 0);
    EXPECT_EQ(IEventManager::processEvent(thread), 1);
    EXPECT_EQ(thread.stopThread(), 1) << "not started, so no stop";
    EXPECT_EQ(thread.startThread(), 0);
    morlan_fail_call("SMThreadStop", 1, 1, 0x5FFFF); // the low half is the result
    EXPECT_EQ(thread.terminateThread(), -1);
    EXPECT_EQ(thread.startThread(), 0); // the older thread is on its own
    other = Thread(thread);
    EXPECT_TRUE(other.getFuncAddr() == countRuns && other.getFuncArg() == &runs);
    EXPECT_EQ(other.stopThread() + thread.stopThread(), 0) << "one handle, stopped twice";
    EXPECT_EQ(morlan_wait_threads(5000), 0);
    EXPECT_EQ(runs, 2);
}

TEST_F(EventFrameTest, ControllersAndObserversStandOnce)
{
    Manager manager;
    const unsigned int none = stg::NUMBER_UNKNOWN;
    for (const stg::SCntrlID_t& id : {stg::SCntrlID_t{4, 0}, {2, 1}, {4, 9}, {none, 1}, {none, 1}})
        manager.insertIntoCntrlList(id);
    std::vector<unsigned int> listed;
    for (const stg::SCntrlID_t& id : manager.m_CntrlIdList)
        listed.push_back(id.m_GlobalCntrlNum);
    EXPECT_THAT(listed, ElementsAre(4, 2, none, none)) << "an unknown number is never found";
    EXPECT_EQ(manager.m_CntrlIdList.front().m_CntrlID, 0U) << "the first of equal numbers";

    manager.processAllEvent();
    EXPECT_THAT(messages(), ElementsAre(testing::HasSubstr("There is no Thread instance available")));
    for (const int which : {0, 1}) {
        manager.m_statuses[which] = 2;
        EXPECT_EQ(manager.instantiate(), 2);
        EXPECT_EQ(manager.getThreadVector().size() + manager.accessMap().size(), 0U);
        manager.m_statuses[which] = 0;
    }
    delete manager.m_last;
    ASSERT_EQ(manager.instantiate(), 0);
    manager.insertIntoMap(7, observerAt(1));
    EXPECT_THAT(manager.accessMap(), ElementsAre(testing::Pair(7, observerAt(0))));
    EXPECT_EQ(manager.removeObserverFromMap(7), 1) << "its subject is there still";
    EXPECT_EQ(manager.removeObserverFromMap(8), 1) << "nobody's";
    Thread& thread = manager.getThreadVector()[0];
    EXPECT_FALSE(CEventManager_Helper(nullptr, true)(thread));
    EXPECT_FALSE(CEventManager_Helper(&manager, true)(thread));
    EXPECT_TRUE(CEventManager_Helper(&manager, true)(thread)) << "there is no subject any more";
    EXPECT_THAT(manager.accessMap(), testing::IsEmpty());

    manager.m_last = new Subject(8);
    EXPECT_EQ(manager.createEventThread(manager.m_last, nullptr), 1);
    EXPECT_EQ(manager.createEventThread(nullptr, IEventManager::thread_call_back), 1);
    EXPECT_EQ(manager.fetchSubjectFromThread(8), nullptr);
    delete manager.m_last;
    clear();
    IEventManager::thread_call_back(nullptr);
    EXPECT_EQ(log(), Lines());
}

template <class Manager>
void expectEmptyCopies()
{
    Manager manager, assigned;
    manager.insertIntoCntrlList({1, 2});
    const Manager copied(manager);
    assigned = manager;
    EXPECT_EQ(copied.m_CntrlIdList.size() + assigned.m_CntrlIdList.size(), 0U);
}

TEST_F(EventFrameTest, AManagerIsNeverReallyCopied)
{
    struct Marvel : CMarvelEventManager {
        using CMarvelEventManager::m_CntrlIdList;
    };
    expectEmptyCopies<Manager>();
    expectEmptyCopies<Marvel>();
}

} // namespace
