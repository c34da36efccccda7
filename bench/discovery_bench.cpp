// A whole discovery by the built plug-in, on systems of several sizes.
#include "Machine.h"

#include "common/LineLog.h"
#include "mvsim/api/mvsim_control.h"
#include "ral/ral_inspect.h"

#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <morlan.h>
#include <mv.h>
#include <ral.h>
#include <sdo.h>
#include <zarnek.h>

#include <chrono>
#include <stdexcept>
#include <vector>

#define BENCH_DECLARE(symbol, arguments) extern "C" unsigned int symbol arguments;
MV_API_LIST(BENCH_DECLARE)
#undef BENCH_DECLARE

namespace
{

constexpr unsigned int DISKS_PER_DRIVE = 8;

ZARNEK_Entry_t loadPlugin()
{
    void* const library = dlopen(ZARNEK_PLUGIN, RTLD_NOW);
    if (library == nullptr)
        throw std::runtime_error(dlerror());
    return reinterpret_cast<ZARNEK_Entry_t>(dlsym(library, ZARNEK_ENTRY_NAME));
}

// The plug-in, initialised next to an empty data engine, until it is stopped and terminated.
class RunningPlugin
{
  public:
    RunningPlugin()
    {
        ral_reset();
        m_entry(ZARNEK_CMD_INITIALIZE, nullptr, &m_slot);
    }
    RunningPlugin(const RunningPlugin&) = delete;
    RunningPlugin& operator=(const RunningPlugin&) = delete;
    ~RunningPlugin()
    {
        m_entry(ZARNEK_CMD_STOP_MONITORING, nullptr, &m_slot);
        m_entry(ZARNEK_CMD_TERMINATE, nullptr, &m_slot);
    }

    void discover() const
    {
        unsigned int firstNumber = 0;
        unsigned int total = 0;
        void* output = &total;
        m_entry(ZARNEK_CMD_DISCOVER, &firstNumber, &output);
    }

  private:
    static inline const ZARNEK_Entry_t m_entry = loadPlugin();
    void* m_slot = nullptr;
};

// The calls that a discovery makes at the vendor library and at the data engine, and nothing else: what the
// vendor tells is thrown away, and the objects are copies of those that the plug-in left in the data engine.
class BareDiscovery
{
  public:
    BareDiscovery() : m_objects(ral_snapshot_create()) {}
    BareDiscovery(const BareDiscovery&) = delete;
    BareDiscovery& operator=(const BareDiscovery&) = delete;
    ~BareDiscovery() { ral_snapshot_destroy(m_objects); }

    void run()
    {
        MV_Adapter_GetCount();
        askController();
        unsigned int next = 0;
        insert(next++, nullptr);

        askAdapter();
        askList(MV_PD_GetHDInfo_Ext, sizeof(_HD_Info), m_infos);
        MV_Adapter_GetCount();
        askAdapter();
        const unsigned int disks = askList(MV_PD_GetHDInfo_Ext, sizeof(_HD_Info), m_infos);
        askList(MV_PD_GetConfig, sizeof(_HD_CONFIG), m_configs);
        const auto* const infos = reinterpret_cast<_HD_Info*>(m_infos.data() + sizeof(_Info_Request));
        for (unsigned int disk = 0; disk < disks; ++disk)
            askDisk(infos[disk].HD_Id);
        for (unsigned int disk = 0; disk < disks; ++disk)
            insertBelowController(next++);

        askAdapter();
        askList(MV_LD_GetInfo, sizeof(_LD_Info), m_infos);
        askAdapter();
        const unsigned int drives = askList(MV_LD_GetInfo, sizeof(_LD_Info), m_infos);
        askList(MV_LD_GetConfig, sizeof(_LD_Config), m_configs);
        for (unsigned int drive = 0; drive < drives; ++drive, ++next) {
            insertBelowController(next);
            forEachListed(object(0), SDO_OBJTYPE_PHYSICAL_DISK,
                          [&](void* disk) { RalLinkObjects(object(next), disk); });
            forEachListed(object(0), SDO_OBJTYPE_PHYSICAL_DISK, [](void*) {});
            insert(next, object(0));
        }
    }

  private:
    using ListCall = unsigned int (*)(unsigned char, _Info_Request*);
    using Answer = std::vector<unsigned char>;

    static void askAdapter()
    {
        unsigned int count = 1;
        _Adapter_Info info{};
        MV_Adapter_GetInfo(0, &count, &info);
    }

    static void askController()
    {
        askAdapter();
        unsigned int count = 1;
        _Adapter_Config_V2 config{};
        MV_Adapter_GetConfig(0, &count, &config);
        _Adapter_OEM_Data oem{};
        oem.OemRecordSize = sizeof oem;
        MV_Adapter_Get_OEM_Data(0, &oem);
    }

    static unsigned int askList(ListCall call, std::size_t entrySize, Answer& answer)
    {
        auto* const request = reinterpret_cast<_Info_Request*>(answer.data());
        const std::size_t room = (answer.size() - sizeof *request) / entrySize;
        *request = {0, MV_REQUEST_LIST, 0, static_cast<std::uint16_t>(room - 1), 0, {}};
        call(0, request);
        return request->NumReturned;
    }

    static void askDisk(std::uint16_t id)
    {
        _HD_RAID_Status_Request status{};
        status.Header = {0, MV_REQUEST_ONE_DEVICE, id, 1, 0, {}};
        MV_PD_GetHDRaidStatus(0, &status);
        _HD_FreeSpaceInfo_Request freeSpace{};
        freeSpace.Header = status.Header;
        MV_PD_GetFreeSpaceInfo(0, &freeSpace);
    }

    // The controller comes first, disks and virtual disks follow.
    void* object(unsigned int index) const
    {
        return const_cast<void*>(ral_snapshot_object(m_objects, index));
    }

    void insert(unsigned int index, const void* parent) const
    {
        RalInsertObject(SMSDOConfigClone(object(index)),
                        parent == nullptr ? nullptr : SMSDOConfigClone(parent));
    }

    void insertBelowController(unsigned int index) const
    {
        forEachListed(nullptr, SDO_OBJTYPE_CONTROLLER, [](void*) {});
        insert(index, object(0));
    }

    template <class Visitor>
    static void forEachListed(void* object, unsigned int type, Visitor visit)
    {
        void** list = nullptr;
        unsigned int count = 0;
        RalListAssociatedObjects(object, type, &list, &count);
        for (unsigned int index = 0; index < count; ++index)
            visit(list[index]);
        RalListFree(list, count);
    }

    ral_snapshot* m_objects;
    // Of the size of the adapter's largest answer.
    Answer m_infos = Answer(64U * 1024U);
    Answer m_configs = Answer(64U * 1024U);
};

template <class Action>
std::vector<std::string> callsOf(Action action)
{
    LineLog calls;
    mvsim_set_call_sink(LineLog::sink, &calls);
    ral_set_call_sink(LineLog::sink, &calls);
    action();
    mvsim_set_call_sink(nullptr, nullptr);
    ral_set_call_sink(nullptr, nullptr);
    return calls.lines();
}

template <class Action>
void timed(benchmark::State& state, Action action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(passed.count());
}

unsigned int drivesOf(const benchmark::State& state)
{
    return static_cast<unsigned int>(state.range(0)) / DISKS_PER_DRIVE;
}

void showPerObject(benchmark::State& state)
{
    const auto objects = static_cast<double>(1 + state.range(0) + drivesOf(state));
    state.counters["per_object"] = benchmark::Counter(objects, benchmark::Counter::kIsIterationInvariantRate |
                                                                   benchmark::Counter::kInvert);
}

void discovery(benchmark::State& state)
{
    const Machine machine;
    machine.loadSystem(static_cast<unsigned int>(state.range(0)), drivesOf(state));
    for (auto _ : state) {
        const RunningPlugin plugin;
        timed(state, [&] { plugin.discover(); });
    }
    showPerObject(state);
}
BENCHMARK(discovery)->Arg(8)->Arg(32)->Arg(128)->UseManualTime()->Unit(benchmark::kMicrosecond);

// Floor: the same calls at the vendor library and at the data engine, made here. The data engine stands empty
// before each run, as it does for the plug-in.
void discovery_floor(benchmark::State& state)
{
    const Machine machine;
    machine.loadSystem(static_cast<unsigned int>(state.range(0)), drivesOf(state));
    const RunningPlugin plugin;
    const std::vector<std::string> wanted = callsOf([&] { plugin.discover(); });
    BareDiscovery floor;
    ral_reset();
    if (callsOf([&] { floor.run(); }) != wanted)
        state.SkipWithError("the floor does not make the plug-in's calls");
    for (auto _ : state) {
        ral_reset();
        timed(state, [&] { floor.run(); });
    }
    showPerObject(state);
}
BENCHMARK(discovery_floor)->Arg(8)->Arg(32)->Arg(128)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace
