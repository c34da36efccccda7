// The order in which the event manager takes down what it built.
#include "common/PluginTest.h"
#include "events/CMarvelEventManager.h"
#include "events/IEvtSubject.h"
#include "morlan/morlan_inspect.h"

using EventFrameTest = PluginTest;

TEST_F(EventFrameTest, ThreadsAreStoppedAllThenAgainAndLoseTheirSubjects)
{
    const auto manager = CMarvelEventManager::getUniqueInstance();
    manager->destroyAllThread();
    EXPECT_FALSE(IEvtSubject::m_bNeedToStopMonitoring);
    ASSERT_EQ(manager->instantiate() + manager->instantiate(), 0);
    const unsigned int last = IEvtSubject::m_EvtSubjectSerialNo;
    morlan_hold_threads(1);
    morlan_fail_call("SMThreadStart", 1, 1, 0); // the first is passed over
    manager->processAllEvent();
    morlan_fail_call("SMThreadStop", 2, 1, 0x5FFFF); // the low half counts
    clear();
    EXPECT_EQ(manager->removeObserverFromMap(last), 1);
    EXPECT_EQ(manager->removeObserverFromMap(last + 1), 1); // in silence
    CMarvelEventManager::destroyMe();

    const std::string frame = "ZARNEK:IEventManager::", thread = "ZARNEK:Thread::stopThread(): ";
    const std::string flag = frame + "stopThread(): Value of m_bNeedToStopMonitoring is set to "
                                     "true to exit the thread gracefully.";
    const std::string related = "Thread related to Event Subject ID: " + std::to_string(last) + " ";
    const std::string remove = frame + "removeObserverFromMap(): ", gone = " has been deleted from Map.";
    EXPECT_EQ(messages(),
              (Lines{remove + "Cannot delete Observer entry from Map, because, its corresponding Subject has "
                              "not yet been deleted from the List.",
                     flag, flag, frame + "thread_call_back(): " + related + "is going to be started.",
                     thread + "Thread has been stopped successfully.",
                     frame + "stopThread(): " + related + "has been stopped successfully.",
                     remove + "Event Subject ID: " + std::to_string(last - 1) + gone,
                     thread + "Error code (During stopping the Thread) = -1",
                     remove + "Event Subject ID: " + std::to_string(last) + gone}));
}
