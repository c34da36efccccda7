// The simulated vendor library behind its C border: it plays what a source gives, answers the calls with
// packed records, and numbers and delivers the events.
//
// All operations may be called from several threads. Results are those of the entry points in mv.h. Null
// pointers are refused with MV_ERR_FAIL, an adapter index past the last with MV_ERR_INVALID_ADAPTER_ID. A
// call that fails leaves the caller's memory alone, unless the scenario says otherwise.
#ifndef ZARNEK_DEVKIT_MVSIM_SIMULATOR_H
#define ZARNEK_DEVKIT_MVSIM_SIMULATOR_H

#include "mvsim/model/ISource.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace mvsim
{

class Simulator
{
  public:
    using SourceMaker = std::function<std::unique_ptr<ISource>()>;

    // `fallback` is asked once, at the first call that needs a source and finds that none was ever chosen; it
    // may give null.
    explicit Simulator(SourceMaker fallback);

    // Starts a source at poll 0; null: no adapters. What was played before goes, the sequence base stays.
    void play(std::unique_ptr<ISource> source);
    void setSequenceBase(std::uint32_t sequence);

    unsigned int polls();    // begun by adapter 0
    unsigned int lastPoll(); // at which the source has something planned

    unsigned int vendorCall(EntryPoint entry); // the calls that only give a status
    unsigned int adapterCount();
    unsigned int adapterInfo(unsigned int adapter, _Adapter_Info* info);
    unsigned int adapterConfig(unsigned int adapter, _Adapter_Config_V2* config);
    unsigned int oemData(unsigned int adapter, _Adapter_OEM_Data* data);
    // The six calls that tell of devices; `request` is the header of what the caller gave.
    unsigned int devices(EntryPoint entry, unsigned int adapter, _Info_Request* request);
    // Begins the adapter's next poll. `delivered` gets the events that were written.
    unsigned int events(unsigned int adapter, unsigned int maximum, unsigned int* count, _Event* events,
                        std::vector<_Event>& delivered);
    unsigned int flushEvents(unsigned int adapter);
    // A request that the simulated adapters do not know.
    unsigned int unsupported(EntryPoint entry, unsigned int adapter);

  private:
    void choose(std::unique_ptr<ISource> source);
    void ensureSource();
    // Judges a call of an adapter and, where the verdict says so, runs `fill(played)`, whose status holds
    // unless the scenario has planned another.
    template <class Fill>
    unsigned int answer(EntryPoint entry, unsigned int adapter, Fill fill);
    void beginPoll(unsigned int adapter, PlayedAdapter& played);
    void numberEvents(std::vector<_Event>& events, const std::vector<bool>& numbered);

    std::mutex m_mutex;
    SourceMaker m_fallback;
    bool m_chosen = false;
    std::unique_ptr<ISource> m_source;
    std::vector<PlayedAdapter> m_adapters;
    CallRules m_vendorRules;
    std::uint32_t m_sequenceBase = 0;
    std::uint32_t m_lastSequence = 0; // given out
};

} // namespace mvsim

#endif
