// Runs the benchmarks and puts each in relation to its floor: "name_floor" is the floor of "name". What is
// shown are medians over repetitions that take turns, so that a busy machine slows both sides of a ratio
// alike.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <iomanip>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace
{

class RatioReporter : public benchmark::ConsoleReporter
{
  public:
    RatioReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.error_occurred || run.aggregate_name == "median")
                m_runs.emplace(std::make_pair(run.run_name.function_name, run.run_name.args), run);
    }

    // The table, in the order of names, and the ratios below it.
    void Finalize() override
    {
        for (const auto& [name, run] : m_runs)
            ConsoleReporter::ReportRuns({run});
        for (const auto& [name, run] : m_runs) {
            const auto floor = m_runs.find({name.first + "_floor", name.second});
            if (floor != m_runs.end() && !run.error_occurred && !floor->second.error_occurred)
                GetOutputStream() << name.first << (name.second.empty() ? "" : "/" + name.second)
                                  << std::fixed << std::setprecision(1) << ": "
                                  << run.GetAdjustedRealTime() / floor->second.GetAdjustedRealTime()
                                  << " times its floor\n";
        }
    }

    bool failed() const
    {
        return std::any_of(m_runs.begin(), m_runs.end(),
                           [](const auto& entry) { return entry.second.error_occurred; });
    }

  private:
    std::map<std::pair<std::string, std::string>, Run> m_runs; // by name and arguments
};

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> texts = {argv[0], "--benchmark_repetitions=9", "--benchmark_min_time=0.1",
                                      "--benchmark_enable_random_interleaving=true"};
    texts.insert(texts.end(), argv + 1, argv + argc);
    std::vector<char*> arguments;
    for (std::string& text : texts)
        arguments.push_back(text.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;

    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.failed() ? 1 : 0;
}
