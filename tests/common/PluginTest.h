// The plug-in's classes under test, among the stand-ins: everything that is said and called gathered in
// order, and a clean slate before and after.
#ifndef ZARNEK_TESTS_PLUGINTEST_H
#define ZARNEK_TESTS_PLUGINTEST_H

#include "common/LineLog.h"
#include "common/StandIns.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using Lines = std::vector<std::string>;

class PluginTest : public testing::Test, protected StandIns
{
  protected:
    PluginTest();
    // Takes the singletons down, and demands that nothing of the stand-ins is left allocated.
    ~PluginTest() override;

    // What was said through DebugPrint since the last clear: every line, or those that are no ENTRY or EXIT.
    Lines log() const { return withPrefix("log "); }
    Lines messages() const;
    // Calls of the vendor library.
    Lines vendorCalls() const { return withPrefix("mv "); }
    // All of it in order, each line behind "log ", "mv ", "ral " or "sm ".
    Lines trace() const;
    void clear();

  private:
    struct Source {
        PluginTest* test;
        const char* prefix;
        static void sink(void* source, const char* text);
    };
    Lines withPrefix(const std::string& prefix) const;

    LineLog m_trace;
    std::size_t m_cleared = 0;
    Source m_debugSource{this, "log "};
    Source m_vendorSource{this, "mv "};
    Source m_ralSource{this, "ral "};
    Source m_supportSource{this, "sm "};
};

#endif
