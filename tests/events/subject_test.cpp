// The polling loop over a scripted query layer. The program's own sleep stands in for the C library's while a
// test watches it.
#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "events/CMarvelEvtObserver.h"
#include "events/CMarvelEvtSubject.h"
#include "mvlayer/CMVLibraryInterfaceLayer.h"

#include <dlfcn.h>

static std::string calls;   // of the layer, the observer and the watched sleep
static int sleepsLeft = -1; // until the stop request; negative when nobody watches

extern "C" unsigned int sleep(unsigned int seconds)
{
    if (sleepsLeft < 0)
        return reinterpret_cast<unsigned int (*)(unsigned int)>(dlsym(RTLD_NEXT, "sleep"))(seconds);
    calls += "sleep " + std::to_string(seconds) + ' ';
    IEvtSubject::m_bNeedToStopMonitoring = --sleepsLeft <= 0;
    return 0;
}

namespace
{

// Query layer and observer in one.
struct Peer : CMVLibraryInterfaceLayer, CMarvelEvtObserver {
    Peer() : CMVLibraryInterfaceLayer(9, nullptr) {}
    // A controller's index is its status, its global number the count of its alerts.
    short getEventInfo(stg::SCntrlID_t id, std::vector<CAlert*>& alerts) override
    {
        while (alerts.size() < id.m_GlobalCntrlNum)
            alerts.push_back(new CMarvelAlert);
        return static_cast<short>(id.m_CntrlID);
    }
    short releaseEventInfoVector(std::vector<CAlert*>& alerts) override
    {
        calls += "release " + std::to_string(alerts.size()) + ' ';
        return CMVLibraryInterfaceLayer::releaseEventInfoVector(alerts);
    }
    void updateMyself(std::vector<CAlert*>& alerts) override
    {
        calls += "notify " + std::to_string(alerts.size()) + ' ';
    }
};

struct Subject : CMarvelEvtSubject {
    explicit Subject(Peer& peer) : CMarvelEvtSubject({{2, 0}, {1, 5}, {0, 0}, {3, 0}, {0, 65535}})
    {
        m_pLilLayer = &peer;
        registerMe(&peer, nullptr);
    }
    using CMarvelEvtSubject::m_AlertVector;
};

struct EventSubjectTest : PluginTest {
    Peer m_peer;
};

TEST_F(EventSubjectTest, PollsAllAndSleepsUntilTheRequest)
{
    for (const int request : {0, 1, 2}) { // in which sleep; 0 is ahead of the start
        calls.clear();
        sleepsLeft = request;
        IEvtSubject::m_bNeedToStopMonitoring = request == 0;
        EXPECT_EQ(Subject(m_peer).process(), 0);
        const std::string pass = "notify 2 release 2 release 1 release 0 notify 3 release 3 release 0 " +
                                 std::string(request == 0 ? "" : "sleep 50 ");
        EXPECT_EQ(calls, request == 2 ? pass + pass : pass);
    }
    sleepsLeft = -1;
    EXPECT_EQ(messages().back(), "ZARNEK:CMarvelEvtSubject: getEventInfo():return code=-1alert size = 0");
}

TEST_F(EventSubjectTest, CopiesHaveNoNumberListOrBatchOfTheirOwn)
{
    calls.clear();
    {
        Subject original(m_peer);
        original.m_AlertVector = {new CMarvelAlert, new CMarvelAlert};
        Subject copy(original);
        EXPECT_EQ(copy.getSubjectID(), original.getSubjectID());
        EXPECT_EQ(Subject(m_peer).getSubjectID(), original.getSubjectID() + 1);
        EXPECT_TRUE(copy.getCntrlIdList().empty());
        copy.notifyObserver();
        original.IEvtSubject::notifyObserver(); // nothing without a member pointer
    }
    EXPECT_EQ(calls, "notify 0 release 2 ");
}

} // namespace
