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
using testing::IsEmpty;

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
    static unsigned char places[3];
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

class EventFrameTest : public PluginTest
{
  protected:
    // What was said since the last look, without the common prefix.
    Lines said()
    {
        Lines lines = messages();
        for (std::string& line : lines)
            line.erase(0, line.rfind("ZARNEK:", 0) == 0 ? 7 : 0);
        clear();
        return lines;
    }
};

constexpr char CREATED[] = "Thread::startThread(): Event Thread got created successfully.";
constexpr char STOPPED[] = "Thread::stopThread(): Thread has been stopped successfully.";
constexpr char FLAG[] =
    "IEventManager::stopThread(): Value of m_bNeedToStopMonitoring is set to true to exit "
    "the thread gracefully.";
std::string removed(unsigned int id)
{
    return "IEventManager::removeObserverFromMap(): Event Subject ID: " + std::to_string(id) +
           " has been deleted from Map.";
}

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
    EXPECT_EQ(said(), Lines{});
    EXPECT_EQ(thread.startThread(), 0);
    EXPECT_EQ(said(), Lines{CREATED});
    // The low half of the library's status is the result.
    for (const auto& [planned, result] : std::map<int, int>{{0x50007, 7}, {0xFFFF, -1}}) {
        morlan_fail_call("SMThreadStop", 1, 1, planned);
        EXPECT_EQ(thread.terminateThread(), result);
        const std::string status = std::to_string(result);
        EXPECT_EQ(said(), Lines({"Thread::stopThread(): Error code (During stopping the Thread) = " + status,
                                 "Thread::terminateThread(): Return Code = " + status}));
    }
    EXPECT_EQ(thread.startThread(), 0); // the older thread is on its own
    other = Thread(thread);
    EXPECT_TRUE(other.getFuncAddr() == countRuns && other.getFuncArg() == &runs);
    EXPECT_EQ(other.stopThread() + thread.stopThread(), 0) << "one handle, stopped twice";
    EXPECT_EQ(morlan_wait_threads(5000), 0);
    EXPECT_EQ(runs, 2);
}

TEST_F(EventFrameTest, InstantiateEndsAtTheFirstStepThatFails)
{
    const std::string noSubject = "Subject. Not proceeding further to create Event Observer and Thread.";
    const std::string noObserver = "Observer. Not proceeding further to create Event Thread.";
    const Lines toSubject{"layer", "own", "subject"}, toObserver{"layer", "own", "subject", "observer"};
    struct Case {
        short subjectStatus, observerStatus;
        bool makesSubject;
        short result;
        Lines steps;
        std::string failed;
    };
    for (const Case& c :
         {Case{5, 0, true, 5, toSubject, noSubject}, Case{0, 0, false, 0, toSubject, noSubject},
          Case{0, 3, true, 3, toObserver, noObserver}, Case{0, 0, true, 0, toObserver, ""}}) {
        Manager manager;
        manager.m_subjectStatus = c.subjectStatus;
        manager.m_observerStatus = c.observerStatus;
        manager.m_makesSubject = c.makesSubject;
        clear();
        EXPECT_EQ(manager.instantiate(), c.result);
        EXPECT_EQ(said(), c.failed.empty()
                              ? Lines{}
                              : Lines{"IEventManager::instantiate(): Failed to create Event " + c.failed});
        EXPECT_EQ(manager.m_steps, c.steps);
        const std::size_t built = c.failed.empty() ? 1 : 0;
        EXPECT_EQ(manager.getThreadVector().size(), built);
        EXPECT_EQ(manager.accessMap().count(7), built);
        const std::unique_ptr<IEvtSubject> left(manager.m_last); // alive on every path
        EXPECT_THAT(Manager(manager).getThreadVector(), IsEmpty());
    }
}

TEST_F(EventFrameTest, ControllersAndObserversStandOnce)
{
    Manager manager;
    const unsigned int none = stg::NUMBER_UNKNOWN;
    for (const stg::SCntrlID_t& id :
         {stg::SCntrlID_t{4, 0}, {2, 1}, {4, 9}, {0, 0}, {2, 1}, {none, 1}, {none, 1}})
        manager.insertIntoCntrlList(id);
    std::vector<unsigned int> listed;
    for (const stg::SCntrlID_t& id : manager.m_CntrlIdList)
        listed.push_back(id.m_GlobalCntrlNum);
    EXPECT_THAT(listed, ElementsAre(4, 2, 0, none, none)) << "an unknown number is never found";
    EXPECT_EQ(manager.m_CntrlIdList.front().m_CntrlID, 0U) << "the first of equal numbers";

    Subject unused(1);
    EXPECT_EQ(manager.createEventThread(nullptr, countRuns) + manager.createEventThread(&unused, nullptr), 2);
    EXPECT_THAT(manager.getThreadVector(), IsEmpty());
    ASSERT_EQ(manager.instantiate(), 0);
    manager.insertIntoMap(7, observerAt(1));
    manager.insertIntoMap(8, observerAt(2));
    EXPECT_THAT(manager.accessMap(),
                ElementsAre(testing::Pair(7, observerAt(0)), testing::Pair(8, observerAt(2))));
    EXPECT_EQ(manager.fetchSubjectFromThread(7), manager.m_last);
    clear();
    EXPECT_EQ(manager.removeObserverFromMap(7), 1);
    EXPECT_EQ(said(),
              Lines{"IEventManager::removeObserverFromMap(): Cannot delete Observer entry from Map, because, "
                    "its corresponding Subject has not yet been deleted from the List."});
    EXPECT_EQ(manager.removeObserverFromMap(8), 0);
    EXPECT_EQ(manager.removeObserverFromMap(8), 1);
    EXPECT_EQ(said(), Lines{removed(8)});

    Thread& thread = manager.getThreadVector()[0];
    EXPECT_FALSE(CEventManager_Helper(nullptr, true)(thread));
    EXPECT_EQ(said(),
              Lines{"CEventManager_Helper::operator () ( Thread& threadObj ): Event Manager Pointer is "
                    "missing. Not able to delete Event Subject from Thread Object."});
    EXPECT_FALSE(CEventManager_Helper(&manager, true)(thread));
    EXPECT_EQ(said(), Lines({"gone 7", removed(7)}));
    EXPECT_TRUE(CEventManager_Helper(&manager, true)(thread)) << "there is no subject any more";
    manager.m_nextId = none;
    ASSERT_EQ(manager.instantiate(), 0);
    EXPECT_EQ(manager.fetchSubjectFromThread(none), nullptr);
    manager.destroyAllThread();
}

TEST_F(EventFrameTest, ThreadsAreStoppedAllThenAgainAndLoseTheirSubjects)
{
    morlan_hold_threads(1); // until they are stopped
    Manager manager;
    manager.destroyAllThread();
    EXPECT_FALSE(IEvtSubject::m_bNeedToStopMonitoring) << "nothing was there to stop";
    manager.processAllEvent();
    EXPECT_EQ(said(), Lines{"IEventManager::processAllEvent(): There is no Thread instance available in the "
                            "Vector. Not able to proceed further."});
    ASSERT_EQ(manager.instantiate() + manager.instantiate() + manager.instantiate(), 0);
    morlan_fail_call("SMThreadStart", 1, 1, 0); // passed over in silence
    manager.processAllEvent();
    EXPECT_EQ(said(), Lines({CREATED, CREATED}));
    manager.destroyAllThread();
    const std::string related = "Thread related to Event Subject ID: ";
    Lines stopped{FLAG}, gone{"gone 7", removed(7)};
    for (const unsigned int id : {8U, 9U}) {
        const std::string number = std::to_string(id);
        stopped.insert(
            stopped.end(),
            {FLAG, "IEventManager::thread_call_back(): " + related + number + " is going to be started.",
             "process " + number + " to its stop", STOPPED,
             "IEventManager::stopThread(): " + related + number + " has been stopped successfully."});
        gone.insert(gone.end(), {STOPPED, "gone " + number, removed(id)});
    }
    stopped.insert(stopped.end(), gone.begin(), gone.end());
    EXPECT_EQ(said(), stopped);

    // The entries stay. Started anew they end at once, and the flag is never taken back.
    ASSERT_EQ(manager.instantiate(), 0);
    manager.processAllEvent();
    EXPECT_EQ(IEventManager::stopThread(manager.getThreadVector()[1]), 0);
    EXPECT_EQ(said(), Lines({CREATED, CREATED, CREATED, CREATED, FLAG, STOPPED}));
    EXPECT_TRUE(IEvtSubject::m_bNeedToStopMonitoring);
    manager.destroyAllThread();

    Subject unknown(stg::NUMBER_UNKNOWN);
    Thread thread(IEventManager::thread_call_back, &unknown);
    EXPECT_EQ(IEventManager::stopThread(thread), 1) << "never started";
    EXPECT_EQ(thread.startThread(), 0);
    EXPECT_EQ(IEventManager::stopThread(thread), 0);
    EXPECT_EQ(said().back(), STOPPED) << "there is no number to tell";
}

} // namespace
