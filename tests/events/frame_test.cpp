// The event frame: threads as values, what is built for a subject, and the order in which it is taken down.
#include "common/PluginTest.h"
#include "events/CEventManager_Helper.h"
#include "events/IEventManager.h"
#include "events/IEvtSubject.h"
#include "morlan/morlan_inspect.h"
#include "support/CLogger.h"
#include "support/Status.h"

#include <memory>

using testing::ElementsAre;

namespace
{

struct Subject : IEvtSubject {
    explicit Subject(unsigned int id) { setSubjectID(id); }
    ~Subject() override { stg::lout << "gone " << m_SubjectID << '\n'; }
    short process() override
    {
        stg::lout << "process " << m_SubjectID << (m_bNeedToStopMonitoring ? " to its stop" : "") << '\n';
        return 0;
    }
};

// A place where an observer could be; the frame only points at it.
IEvtObserver* observerAt(unsigned int index)
{
    static unsigned char places[2];
    return reinterpret_cast<IEvtObserver*>(&places[index]);
}

// A vendor's manager whose steps end as they are told to; numbers its subjects from 7.
struct Manager : IEventManager {
    using IEventManager::m_CntrlIdList;

    void setLilObjPtr() override { m_steps.emplace_back("layer"); }
    void doEvtMgrSpecificOperation() override { m_steps.emplace_back("own"); }
    short createEventSubject(IEvtSubject*& subject) override
    {
        m_steps.emplace_back("subject");
        EXPECT_EQ(subject, nullptr);
        if (m_makesSubject)
            subject = m_last = new Subject(m_nextId++);
        return m_subjectStatus;
    }
    short createEventObserver(IEvtSubject* subject, short (*callback)(ICommand&)) override
    {
        m_steps.emplace_back("observer");
        EXPECT_TRUE(subject == m_last && callback == takeAction);
        m_pObserver = observerAt(0);
        return m_observerStatus;
    }

    Lines m_steps;
    short m_subjectStatus = 0, m_observerStatus = 0;
    bool m_makesSubject = true;
    IEvtSubject* m_last = nullptr;
    unsigned int m_nextId = 7;
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

TEST_F(EventFrameTest, InstantiateEndsAtTheFirstStepThatFails)
{
    const Lines toSubject{"layer", "own", "subject"}, toObserver{"layer", "own", "subject", "observer"};
    struct Case {
        short subjectStatus, observerStatus;
        bool makesSubject;
        Lines steps;
        std::size_t built;
    };
    for (const Case& c : {Case{5, 0, true, toSubject, 0}, Case{0, 0, false, toSubject, 0},
                          Case{0, 3, true, toObserver, 0}, Case{0, 0, true, toObserver, 1}}) {
        Manager manager;
        manager.m_subjectStatus = c.subjectStatus;
        manager.m_observerStatus = c.observerStatus;
        manager.m_makesSubject = c.makesSubject;
        EXPECT_EQ(manager.instantiate(), c.subjectStatus + c.observerStatus);
        EXPECT_EQ(manager.m_steps, c.steps);
        EXPECT_EQ(manager.getThreadVector().size(), c.built);
        EXPECT_EQ(manager.accessMap().count(7), c.built);
        const std::unique_ptr<IEvtSubject> left(manager.m_last); // alive on every path
    }
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

    ASSERT_EQ(manager.instantiate(), 0);
    manager.insertIntoMap(7, observerAt(1));
    EXPECT_THAT(manager.accessMap(), ElementsAre(testing::Pair(7, observerAt(0))));
    EXPECT_EQ(manager.removeObserverFromMap(7), 1) << "its subject is there still";
    Thread& thread = manager.getThreadVector()[0];
    EXPECT_FALSE(CEventManager_Helper(nullptr, true)(thread));
    EXPECT_FALSE(CEventManager_Helper(&manager, true)(thread));
    EXPECT_TRUE(CEventManager_Helper(&manager, true)(thread)) << "there is no subject any more";
    EXPECT_THAT(manager.accessMap(), testing::IsEmpty());
}

TEST_F(EventFrameTest, ThreadsAreStoppedAllThenAgainAndLoseTheirSubjects)
{
    morlan_hold_threads(1); // until they are stopped
    Manager manager;
    manager.destroyAllThread();
    EXPECT_FALSE(IEvtSubject::m_bNeedToStopMonitoring) << "nothing was there to stop";
    ASSERT_EQ(manager.instantiate() + manager.instantiate(), 0);
    manager.processAllEvent();
    clear();
    manager.destroyAllThread();
    Lines said;
    for (const std::string& line : messages())
        if (line.rfind("gone", 0) == 0 || line.rfind("process", 0) == 0)
            said.push_back(line);
    EXPECT_THAT(said, ElementsAre("process 7 to its stop", "process 8 to its stop", "gone 7", "gone 8"));
    EXPECT_EQ(morlan_call_count("SMThreadStop"), 4U);
    manager.processAllEvent(); // the entries stay; without subjects they end at once
    manager.destroyAllThread();
}

} // namespace
