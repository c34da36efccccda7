// The event frame: threads as values, what is built for a subject, and the order in which it is taken down.
#include "common/PluginTest.h"
#include "discovery/ICommand.h"
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
        stg::lout << "process " << m_SubjectID << ' ' << m_bNeedToStopMonitoring << '\n';
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

    void setLilObjPtr() override { m_steps += "layer "; }
    void doEvtMgrSpecificOperation() override { m_steps += "own "; }
    short createEventSubject(IEvtSubject*& subject) override
    {
        m_steps += subject == nullptr ? "subject " : "no-null ";
        if (m_makesSubject)
            subject = m_last = new Subject(m_nextId++);
        return m_subjectStatus;
    }
    short createEventObserver(IEvtSubject* subject, short (*callback)(ICommand&)) override
    {
        m_steps += subject == m_last && callback == takeAction ? "observer " : "others ";
        m_pObserver = observerAt(0);
        return m_observerStatus;
    }

    std::string m_steps;
    short m_subjectStatus = 0, m_observerStatus = 0;
    bool m_makesSubject = true;
    IEvtSubject* m_last = nullptr;
    unsigned int m_nextId = 7;
};

class EventFrameTest : public PluginTest
{
  protected:
    // What was said since the last look, one line each before a '|', the common prefix left out.
    std::string said()
    {
        std::string all;
        for (const std::string& line : messages())
            all += line.substr(line.rfind("ZARNEK:", 0) == 0 ? 7 : 0) + '|';
        clear();
        return all;
    }
};

constexpr char CREATED[] = "Thread::startThread(): Event Thread got created successfully.|";
constexpr char STOPPED[] = "Thread::stopThread(): Thread has been stopped successfully.|";
constexpr char FLAG[] =
    "IEventManager::stopThread(): Value of m_bNeedToStopMonitoring is set to true to exit "
    "the thread gracefully.|";
std::string removed(unsigned int id)
{
    return "IEventManager::removeObserverFromMap(): Event Subject ID: " + std::to_string(id) +
           " has been deleted from Map.|";
}

void countRuns(void* runs)
{
    ++*static_cast<int*>(runs);
}

TEST_F(EventFrameTest, AThreadIsAValueThatStartsAndStops)
{
    int runs = 0;
    Thread thread(nullptr, &runs), other(nullptr, nullptr);
    thread.setFuncAddr(countRuns);
    morlan_fail_call("SMThreadStart", 1, 1, 0);
    EXPECT_EQ(IEventManager::processEvent(thread) * 10 + thread.stopThread(), 11)
        << "not started, so no stop";
    EXPECT_EQ(said(), "");
    EXPECT_EQ(thread.startThread(), 0);
    EXPECT_EQ(said(), CREATED);
    // The low half of the library's status is the result.
    for (const auto& [planned, result] : std::map<int, int>{{0x50007, 7}, {0xFFFF, -1}, {0x10000, 0}}) {
        morlan_fail_call("SMThreadStop", 1, 1, planned);
        EXPECT_EQ(thread.terminateThread(), result);
        const std::string status = std::to_string(result);
        EXPECT_EQ(said(),
                  (result == 0
                       ? STOPPED
                       : "Thread::stopThread(): Error code (During stopping the Thread) = " + status + '|') +
                      "Thread::terminateThread(): Return Code = " + status + '|');
    }
    void* const first = thread.getRunningThreadPtr();
    EXPECT_EQ(thread.startThread(), 0);
    EXPECT_NE(thread.getRunningThreadPtr(), first) << "the older thread is on its own";
    clear();
    {
        const Thread copy(thread);
        other = copy;
    }
    Lines frames;
    for (const std::string label : {"ZARNEK: Thread Copy Constructor ", "ZARNEK:Thread::operator = ()",
                                    "ZARNEK:Thread::~Thread() Destructor"})
        frames.insert(frames.end(), {label + " ENTRY ", label + " EXIT "});
    EXPECT_EQ(log(), frames);
    EXPECT_EQ(other.getFuncAddr(), countRuns);
    EXPECT_EQ(other.getFuncArg(), &runs);
    EXPECT_EQ(other.stopThread() + thread.stopThread(), 0) << "one handle, stopped twice";
    EXPECT_EQ(morlan_wait_threads(5000), 0);
    EXPECT_EQ(runs, 2);
}

TEST_F(EventFrameTest, InstantiateEndsAtTheFirstStepThatFails)
{
    const std::string noSubject = "Subject. Not proceeding further to create Event Observer and Thread.|";
    struct Case {
        short subjectStatus, observerStatus;
        bool makesSubject;
        short result;
        std::string steps, failed;
    };
    for (const Case& c : {Case{5, 0, true, 5, "layer own subject ", noSubject},
                          {0, 0, false, 0, "layer own subject ", noSubject},
                          Case{0, 3, true, 3, "layer own subject observer ",
                               "Observer. Not proceeding further to create Event Thread.|"},
                          Case{0, 0, true, 0, "layer own subject observer ", ""}}) {
        Manager manager;
        manager.m_subjectStatus = c.subjectStatus;
        manager.m_observerStatus = c.observerStatus;
        manager.m_makesSubject = c.makesSubject;
        clear();
        EXPECT_EQ(manager.instantiate(), c.result);
        EXPECT_EQ(said(),
                  c.failed.empty() ? "" : "IEventManager::instantiate(): Failed to create Event " + c.failed);
        EXPECT_EQ(manager.m_steps, c.steps);
        const std::size_t built = c.failed.empty() ? 1 : 0;
        EXPECT_EQ(manager.getThreadVector().size(), built);
        EXPECT_EQ(manager.accessMap().count(7), built);
        const std::unique_ptr<IEvtSubject> left(manager.m_last); // alive on every path
        Manager copy(manager);
        copy = manager;
        EXPECT_THAT(copy.getThreadVector(), IsEmpty());
    }
}

TEST_F(EventFrameTest, ControllersAndObserversStandOnce)
{
    Manager manager;
    const unsigned int none = stg::NUMBER_UNKNOWN;
    for (const stg::SCntrlID_t id :
         {stg::SCntrlID_t{4, 0}, {2, 1}, {4, 9}, {0, 0}, {2, 1}, {none, 1}, {none, 1}})
        manager.insertIntoCntrlList(id);
    std::string listed;
    for (const stg::SCntrlID_t& id : manager.m_CntrlIdList)
        listed += std::to_string(id.m_GlobalCntrlNum) + '/' + std::to_string(id.m_CntrlID) + ' ';
    EXPECT_EQ(listed, "4/0 2/1 0/0 4294967295/1 4294967295/1 ") << "an unknown number is never found";

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
              "IEventManager::removeObserverFromMap(): Cannot delete Observer entry from Map, because, "
              "its corresponding Subject has not yet been deleted from the List.|");
    EXPECT_EQ(manager.removeObserverFromMap(9), 1);
    EXPECT_EQ(said(), "");
    EXPECT_EQ(manager.removeObserverFromMap(8), 0);
    EXPECT_EQ(said(), removed(8));
    Thread& thread = manager.getThreadVector().front();
    EXPECT_FALSE(CEventManager_Helper(nullptr, true)(thread));
    EXPECT_EQ(said(),
              "CEventManager_Helper::operator () ( Thread& threadObj ): Event Manager Pointer is missing. "
              "Not able to delete Event Subject from Thread Object.|");
    EXPECT_FALSE(CEventManager_Helper(&manager, true)(thread));
    EXPECT_EQ(said(), "gone 7|" + removed(7));
    EXPECT_TRUE(CEventManager_Helper(&manager, true)(thread)) << "there is no subject any more";
    EXPECT_EQ(manager.fetchSubjectFromThread(7), nullptr);
    EXPECT_THAT(manager.accessMap(), IsEmpty());
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
    EXPECT_EQ(said(),
              "IEventManager::processAllEvent(): There is no Thread instance available in the Vector. Not "
              "able to proceed further.|");
    ASSERT_EQ(manager.instantiate() + manager.instantiate() + manager.instantiate(), 0);
    morlan_fail_call("SMThreadStart", 1, 1, 0); // passed over in silence
    manager.processAllEvent();
    EXPECT_EQ(said(), std::string(CREATED) + CREATED);
    manager.destroyAllThread();
    const std::string related = "Thread related to Event Subject ID: ";
    std::string stopped = FLAG, gone = "gone 7|" + removed(7);
    for (const unsigned int id : {8U, 9U}) {
        const std::string number = std::to_string(id);
        stopped += FLAG + ("IEventManager::thread_call_back(): " + related + number) +
                   " is going to be started.|" + "process " + number + " 1|" + STOPPED +
                   "IEventManager::stopThread(): " + related + number + " has been stopped successfully.|";
        gone += STOPPED + ("gone " + number) + '|' + removed(id);
    }
    EXPECT_EQ(said(), stopped + gone);
    EXPECT_EQ(morlan_call_count("SMThreadStop"), 4U);

    // The entries stay. Started anew they end at once, and the flag is never taken back.
    ASSERT_EQ(manager.instantiate(), 0);
    manager.processAllEvent();
    EXPECT_EQ(IEventManager::stopThread(manager.getThreadVector()[1]), 0);
    EXPECT_EQ(said(), std::string(CREATED) + CREATED + CREATED + CREATED + FLAG + STOPPED);
    EXPECT_TRUE(IEvtSubject::m_bNeedToStopMonitoring);
    manager.destroyAllThread();

    IEvtSubject::m_bNeedToStopMonitoring = false;
    Subject unknown(stg::NUMBER_UNKNOWN);
    Thread thread(IEventManager::thread_call_back, &unknown);
    EXPECT_EQ(IEventManager::stopThread(thread), 1) << "never started";
    EXPECT_TRUE(IEvtSubject::m_bNeedToStopMonitoring);
    EXPECT_EQ(thread.startThread(), 0);
    clear();
    EXPECT_EQ(IEventManager::stopThread(thread), 0);
    EXPECT_THAT(said(), testing::EndsWith(STOPPED)) << "there is no number to tell";
}

TEST_F(EventFrameTest, AnActionsResultIsOfNoConcern)
{
    struct Command : ICommand {
        unsigned int execute() override { return ++m_runs; }
        unsigned int m_runs = 0;
    } command;
    EXPECT_EQ(IEventManager::takeAction(command), 0);
    EXPECT_EQ(command.m_runs, 1U);
}

} // namespace
