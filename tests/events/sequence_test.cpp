// The event sequence number over restarts.
#include "common/DataRows.h"
#include "common/PluginTest.h"
#include "events/CMarvelEventManager.h"
#include "events/CMarvelEvtObserver.h"
#include "morlan/morlan_inspect.h"

using EventSequenceTest = PluginTest;

TEST_F(EventSequenceTest, WritesANumberThatGrewAndNoOther)
{
    const std::string label = "ZARNEK:CMarvelEventManager::";
    const std::string read = label + "CMarvelEventManager(): Previous Marvel Event Sequence Number: ";
    const std::string told = label + "~CMarvelEventManager(): /MarvelAlertMapping.ini File has been modified "
                                     "with the new Event Sequence Number: ";
    // The status of a planned failure, of which the low half counts; 0 writes.
    for (const auto& row : dataRows("tests/events/sequence-numbers.json")) {
        const unsigned int current = row.at("current"), previous = row.at("previous");
        const int status = row.at("status");
        const std::string file = row.at("file");
        writeMapping(file);
        CMarvelEvtObserver::m_CurEventSeqNum = current;
        CMarvelEventManager::getUniqueInstance()->doEvtMgrSpecificOperation();
        EXPECT_EQ(messages().back(), read + std::to_string(previous));
        if (status != 0)
            morlan_fail_call("SMWriteINIPathFileValue", 1, 1, status);
        CMarvelEventManager::destroyMe();
        EXPECT_EQ(readMapping(), row.value("after", file)) << row;
        EXPECT_EQ(messages().back() == told + std::to_string(current), row.at("told")) << row;
    }
}
