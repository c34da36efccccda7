#include "mvsim/api/SourceChoice.h"

#include "mvsim/live/LiveSource.h"
#include "mvsim/scenario/ScenarioFile.h"
#include "mvsim/scenario/ScenarioSource.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace mvsim
{

std::unique_ptr<ISource> scenarioSource(const std::string& file)
{
    return std::make_unique<ScenarioSource>(loadScenarioFile(file));
}

std::unique_ptr<ISource> liveSource(const std::string& sysfsRoot, const std::string& stateFile)
{
    return std::make_unique<LiveSource>(sysfsRoot, stateFile);
}

std::unique_ptr<ISource> environmentSource()
{
    const char* scenario = secure_getenv("MVSIM_SCENARIO");
    const char* live = secure_getenv("MVSIM_LIVE");
    try {
        if (scenario != nullptr)
            return scenarioSource(scenario);
        if (live != nullptr)
            return liveSource(live, "");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mvsim: %s\n", error.what());
    }
    return nullptr;
}

} // namespace mvsim
