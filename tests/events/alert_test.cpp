#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "sdo/SDOProxy.h"
#include "support/Status.h"

namespace
{

using AlertTest = PluginTest;

TEST_F(AlertTest, IsCopiedWithItsNotificationButNotWithThatOnesObject)
{
    CMarvelAlert alert, assigned;
    alert.getControlNotify().setDevID(3);
    alert.setEventSeqNum(5);
    stg::SDOProxy proxy;
    alert.insertIntoAttribValMap("m_ControlNotify", &proxy);
    assigned = alert;
    CMarvelAlert copied(alert);
    CAlert plain(alert), plainAssigned;
    plainAssigned = alert;
    for (CAlert* const copy : std::initializer_list<CAlert*>{&assigned, &copied, &plain, &plainAssigned}) {
        const bool isPlain = copy == &plain || copy == &plainAssigned;
        EXPECT_EQ(copy->getEventSeqNum(), isPlain ? stg::NUMBER_UNKNOWN : 5U);
        EXPECT_EQ(copy->m_bHasEventSeqNum, isPlain)
            << "the vendor's copies have the number, but not the mark";
        EXPECT_EQ(copy->getControlNotify().getDevID(), 3U);
        EXPECT_EQ(copy->getAttribValueMap()->count("m_ControlNotify"), 0U);
    }
}

} // namespace
