// The polling loop over a scripted query layer. The program's own sleep stands in for the C library's while a
// test watches it.
#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "events/CMarvelEvtObserver.h"
#include "events/CMarvelEvtSubject.h"
#include "mvlayer/CMVLibraryInterfaceLayer.h"

#include <dlfcn.h>

static std::vector<std::string> calls; // of the layer, the observer and the watched sleep
static int sleepsLeft = -1;            // until the stop request; negative when nobody watches

extern "C" unsigned int sleep(unsigned int seconds)
{
    if (sleepsLeft < 0)
        return reinterpret_cast<unsigned int (*)(unsigned int)>(dlsym(RTLD_NEXT, "sleep"))(seconds);
    calls.push_back("sleep " + std::to_string(seconds));
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
        calls.push_back("release " + std::to_string(alerts.size()));
        return CMVLibraryInterfaceLayer::releaseEventInfoVector(alerts);
    }
    void updateMyself(std::vector<CAlert*>& alerts) override
    {
        calls.push_back("notify " + std::to_string(alerts.size()));
    }
};

using Controllers = std::list<stg::SCntrlID_t>;

struct Subject : CMarvelEvtSubject {
    explicit Subject(Peer& peer, Controllers list = {{2, 0}, {1, 5}, {0, 0}, {3, 0}, {0, 65535}})
        : CMarvelEvtSubject(std::move(list))
    {
        m_pLilLayer = &peer;
        registerMe(&peer, nullptr);
    }
    using CMarvelEvtSubject::m_AlertVector;
    using CMarvelEvtSubject::m_pLilLayer;
};

struct EventSubjectTest : PluginTest {
    // What a subject's process does until the stop is requested in the nth sleep; 0 is ahead of the start.
    static Lines processed(Subject&& subject, int request)
    {
        calls.clear();
        sleepsLeft = request;
        IEvtSubject::m_bNeedToStopMonitoring = request == 0;
        EXPECT_EQ(subject.process(), 0);
        sleepsLeft = -1;
        return calls;
    }

    Peer m_peer;
};

TEST_F(EventSubjectTest, PollsAllAndSleepsUntilTheRequest)
{
    const std::string period = "sleep 50";
    Lines wanted{"notify 2", "release 2", "release 1", "release 0", "notify 3", "release 3", "release 0"};
    const Lines pass = wanted;
    EXPECT_EQ(processed(Subject(m_peer), 0), pass);
    wanted.push_back(period);
    wanted.insert(wanted.end(), pass.begin(), pass.end());
    wanted.push_back(period);
    EXPECT_EQ(processed(Subject(m_peer), 2), wanted);
    // Without controllers it only sleeps.
    EXPECT_EQ(processed(Subject(m_peer, {}), 2), Lines({period, period}));
    Subject alone(m_peer);
    alone.m_pLilLayer = nullptr;
    EXPECT_EQ(processed(std::move(alone), 1), Lines({period}));
}

TEST_F(EventSubjectTest, ItsBatchGoesWithItAndCopiesHaveNone)
{
    calls.clear();
    {
        Subject original(m_peer);
        CMarvelEvtSubject assigned;
        EXPECT_EQ(assigned.getSubjectID(), stg::NUMBER_UNKNOWN);
        assigned = original;
        EXPECT_EQ(assigned.getSubjectID(), original.getSubjectID());
        EXPECT_THAT(assigned.getCntrlIdList(), testing::IsEmpty());
        original.m_AlertVector = {new CMarvelAlert, new CMarvelAlert};
        EXPECT_THAT(Subject(original).getCntrlIdList(), testing::IsEmpty());
    }
    EXPECT_EQ(calls, Lines({"release 2"}));
}

} // namespace
