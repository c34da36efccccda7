// The event sequence number over restarts.
#include "common/PluginTest.h"
#include "events/CMarvelEventManager.h"
#include "events/CMarvelEvtObserver.h"
#include "morlan/morlan_inspect.h"

using EventSequenceTest = PluginTest;

TEST_F(EventSequenceTest, WritesANumberThatGrewAndNoOther)
{
    const std::string key = "[EventSequenceNumber]\nSequenceNumber=";
    const std::string hundred = key + "100\n";
    const std::string label = "ZARNEK:CMarvelEventManager::";
    const std::string read = label + "CMarvelEventManager(): Previous Marvel Event Sequence Number: ";
    const std::string told = label + "~CMarvelEventManager(): /MarvelAlertMapping.ini File has been modified "
                                     "with the new Event Sequence Number: ";
    struct Case {
        std::string file, after;
        unsigned int current, previous;
        int writeStatus; // planned; 0 writes
        bool told;
    };
    for (const Case& c :
         {Case{hundred, hundred, 99, 100, 0, false}, Case{hundred, key + "150\n", 150, 100, 0, true},
          Case{hundred, key + "4294967295\n", 0xFFFFFFFF, 100, 0, false},
          Case{hundred, hundred, 150, 100, 5, false},
          Case{hundred, hundred, 150, 100, 0x10000, true}, // the low half counts
          Case{"[Adapter]\nSequenceNumber=3\n", "[Adapter]\nSequenceNumber=3\n", 5, 0xFFFFFFFF, 0, false}}) {
        writeMapping(c.file);
        CMarvelEvtObserver::m_CurEventSeqNum = c.current;
        CMarvelEventManager::getUniqueInstance()->doEvtMgrSpecificOperation();
        EXPECT_EQ(messages().back(), read + std::to_string(c.previous));
        if (c.writeStatus != 0)
            morlan_fail_call("SMWriteINIPathFileValue", 1, 1, c.writeStatus);
        CMarvelEventManager::destroyMe();
        EXPECT_EQ(readMapping(), c.after);
        EXPECT_EQ(messages().back() == told + std::to_string(c.current), c.told);
    }
}
