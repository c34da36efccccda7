// The plug-in's classes under test, among the stand-ins: configuration in a fresh folder, everything that is
// said and called gathered in order, and a clean slate before and after.
#ifndef ZARNEK_TESTS_PLUGINTEST_H
#define ZARNEK_TESTS_PLUGINTEST_H

#include "common/LineLog.h"
#include "common/TempFolder.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using Lines = std::vector<std::string>;

class PluginTest : public testing::Test
{
  protected:
    // The private INI names the simulator, the mapping file holds the sequence number 0 and nothing else.
    PluginTest();
    // Takes the singletons down, and demands that nothing of the stand-ins is left allocated.
    ~PluginTest() override;

    // Files of the install path and the private INI.
    void writeMapping(const std::string& content) const;
    std::string readMapping() const;
    void writePrivateIni(const std::string& content) const;
    // Gives the simulator a scenario: the members of its one adapter, or all of it.
    void loadAdapter(const std::string& members, const std::string& top = "") const;
    void loadScenario(const std::string& text) const;

    // What was said through DebugPrint since the last clear: every line, or those that are no ENTRY or EXIT.
    Lines log() const { return withPrefix("log ", true); }
    Lines messages() const { return withPrefix("log ", false); }
    // Calls of the vendor library and of the data engine.
    Lines vendorCalls() const { return withPrefix("mv ", true); }
    Lines ralCalls() const { return withPrefix("ral ", true); }
    // All of it in order, each line behind "log ", "mv ", "ral " or "sm ".
    Lines trace() const;
    void clear();

    // The data engine's object, by type and the value of the property behind it; null if there is none. The
    // objects belong to the fixture until the next call.
    const void* engineObject(unsigned int type, unsigned int id, unsigned int value);
    unsigned int engineObjectCount();
    // A property of an SDO object as text: "type:value", a nexus as its ids with commas; "none" if absent.
    static std::string property(const void* object, unsigned int id);
    // The ids of an SDO object's properties, in their order.
    static std::vector<unsigned int> propertyIds(const void* object);

    TempFolder m_folder;

  private:
    struct Source {
        PluginTest* test;
        const char* prefix;
        static void sink(void* source, const char* text);
    };
    Lines withPrefix(const std::string& prefix, bool frames) const;
    void releaseSnapshot();

    LineLog m_trace;
    std::size_t m_cleared = 0;
    Source m_debugSource{this, "log "};
    Source m_vendorSource{this, "mv "};
    Source m_ralSource{this, "ral "};
    Source m_supportSource{this, "sm "};
    void* m_snapshot = nullptr;
};

#endif
