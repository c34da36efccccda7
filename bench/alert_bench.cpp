// One accepted alert, from the vendor's record to the notification in the data engine. Its number calls for
// no discovery.
#include "Machine.h"

#include "events/CMarvelAlert.h"
#include "events/CMarvelEvtObserver.h"
#include "mvlayer/Binders.h"
#include "ral/ral_inspect.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace
{

constexpr std::uint16_t MEDIA_ERRORS = 205;

void alert(benchmark::State& state)
{
    const Machine machine;
    unsigned int received = 0;
    ral_set_notification_sink([](void* counter, const void*) { ++*static_cast<unsigned int*>(counter); },
                              &received);
    CMarvelEvtObserver observer;
    _Event event{MV_EVENT_PHYSICAL_DISK, MEDIA_ERRORS, {}, 3, {}, 0, {}};
    stg::SInfoHelper_t helper;
    stg::QLVEventBinder_t binder(&event, &helper);
    for (auto _ : state) {
        ++event.EventSequence;
        CMarvelAlert object;
        object = static_cast<void*>(&binder);
        observer.processAlert(&object);
    }
    if (received != event.EventSequence)
        state.SkipWithError("not every alert became a notification");
}
BENCHMARK(alert);

// Floor: the mapping file's bytes read once, as each alert reads them.
void alert_floor(benchmark::State& state)
{
    const Machine machine;
    const std::string file = machine.mappingFile();
    std::array<char, 4096> bytes{};
    ssize_t size = 0;
    for (auto _ : state) {
        const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
        size = read(descriptor, bytes.data(), bytes.size());
        close(descriptor);
        benchmark::DoNotOptimize(bytes);
    }
    if (size <= 0)
        state.SkipWithError("the mapping file cannot be read");
}
BENCHMARK(alert_floor);

} // namespace
