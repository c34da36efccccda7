// A line of the log, composed of texts and numbers as most are.
#include "Machine.h"

#include "support/CLogger.h"

#include <benchmark/benchmark.h>
#include <morlan.h>

namespace
{

constexpr char LABEL[] = "ZARNEK:IController::getControllerObject()";
constexpr char FINISHED[] =
    "ZARNEK:IController::getControllerObject(): Total Number of Controllers = 4127 of 2158";

void logLine(benchmark::State& state)
{
    const Machine machine;
    for (auto _ : state)
        stg::lout << LABEL << ": "
                  << "Total Number of Controllers = " << 4127U << " of " << 2158U << '\n';
}
BENCHMARK(logLine);

// Floor: the finished text handed to DebugPrint.
void logLine_floor(benchmark::State& state)
{
    const Machine machine;
    for (auto _ : state)
        DebugPrint(FINISHED);
}
BENCHMARK(logLine_floor);

} // namespace
