#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "mvlayer/Binders.h"

using AlertTest = PluginTest;

TEST_F(AlertTest, TakesWhatTheRecordsTell)
{
    for (const auto& [eventClass, objType] :
         std::map<unsigned char, unsigned int>{{0, 769}, {1, 773}, {2, 772}, {5, 0xFFFFFFFF}}) {
        // Class, code, device and sequence where the vendor library puts them, noise between.
        unsigned char bytes[64] = {eventClass, 0, 0xFE, 0xCA, 1, 1, 1, 1, 0xFE, 0xFF, 1, 1, 4, 3, 2, 0xF1, 1};
        stg::QLVEventBinder_t binder(reinterpret_cast<_Event*>(bytes), nullptr);
        CMarvelAlert alert;
        clear();
        static_cast<CAlert&>(alert) = static_cast<void*>(&binder);
        EXPECT_EQ(alert.getControlNotify().getAttribValueMap()->size(), objType < 800 ? 6U : 5U);
        EXPECT_EQ(alert.getControlNotify().getObjType(), objType);
        EXPECT_EQ(alert.getAlertNumber() + alert.getControlNotify().getDevID(), 51966U + 65534U);
        EXPECT_EQ(CMarvelAlert(alert).getEventSeqNum(), 4043440900U);
        EXPECT_NE(CMarvelAlert(alert).m_bHasEventSeqNum, CAlert(alert).m_bHasEventSeqNum);
    }
}
