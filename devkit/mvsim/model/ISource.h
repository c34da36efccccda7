// Where the simulated system comes from. The simulator calls a source under its lock, from one thread at a
// time.
#ifndef ZARNEK_DEVKIT_MVSIM_ISOURCE_H
#define ZARNEK_DEVKIT_MVSIM_ISOURCE_H

#include "mvsim/model/CallRules.h"
#include "mvsim/model/StorageModel.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace mvsim
{

// An adapter being played: what it is made of, and how far it has got.
struct PlayedAdapter {
    Adapter model;
    CallRules rules;
    unsigned int polls = 0; // begun
    std::deque<PendingEvent> pending;
};

class ISource
{
  public:
    virtual ~ISource() = default;

    // The adapters before their first poll, and the rules of the calls that concern no single adapter.
    virtual std::vector<PlayedAdapter> adapters() = 0;
    virtual CallRules vendorRules() const = 0;

    // Brings one adapter to the poll that its `polls` names: changes the model and the rules, and appends
    // what happened to `pending`. One that throws has changed nothing, and is asked again.
    virtual void beginPoll(unsigned int index, PlayedAdapter& adapter) = 0;
    // The last poll at which something is planned; 0 when nothing is.
    virtual unsigned int lastPoll() const = 0;

    // The number behind which events without a number of their own count on.
    virtual std::uint32_t startSequence() const = 0;
    // Told the highest number given out so far, before the events that bear it are delivered.
    virtual void keepSequence(std::uint32_t last) = 0;
};

} // namespace mvsim

#endif
