// The data engine behind ral.h: its objects, the lists it has given out, its sinks and its planned failures.
// Safe from several threads. Calls are done and reported one after the other, so that the sinks hear of them
// in the order in which they took effect; while a sink runs, the inspection functions stay usable.
#ifndef ZARNEK_DEVKIT_RAL_RAL_H
#define ZARNEK_DEVKIT_RAL_RAL_H

#include "common/FaultPlan.h"
#include "common/SinkSlot.h"
#include "morlan/morlan_inspect.h"
#include "ral/ObjectStore.h"
#include "ral/ral_inspect.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace ral
{

class Ral
{
  public:
    static constexpr int FAILED = 1;
    // Status for an object that is not there.
    static constexpr int UNKNOWN = 256;

    // Never destroyed: threads may still be calling when the process ends.
    static Ral& instance();

    // The calls of ral.h, each under its own name.
    int insertObject(void* object, void* parent);
    int deleteObject(void* object, int arg1, int arg2);
    int linkObjects(void* upper, void* lower);
    int listAssociatedObjects(void* object, unsigned int type, void*** list, unsigned int* count);
    int listFree(void** list, unsigned int count);
    int sendNotification(void* object);

    std::vector<SnapshotEntry> snapshot() const;
    // Objects without an identity that have come, also those not kept any more.
    unsigned int incomplete() const;
    unsigned int liveLists() const;
    // Empties the data engine and takes all sinks, faults and counts back. Lists given out stay valid.
    void reset();

    devkit::FaultPlan faults;
    devkit::SinkSlot<ral_change_sink> changeSink;
    devkit::SinkSlot<ral_notification_sink> notificationSink;
    devkit::SinkSlot<devkit_text_sink> callSink;

  private:
    struct Free {
        void operator()(void* object) const { morlan_sdo_free(object); }
    };
    using Handed = std::unique_ptr<void, Free>; // an SDO object that was handed over

    Ral();

    template <class Act>
    int attempt(const char* call, Act act);
    template <class Compose>
    void report(Compose compose, int status, std::optional<unsigned int> found = {});
    void announce(const std::vector<ObjectStore::Change>& changes);
    int makeList(const std::vector<ObjectStore::Sdo>& objects, void*** list, unsigned int* count);

    std::mutex m_calling;         // held over a whole call, sinks included
    mutable std::mutex m_storing; // guards what follows; never held while a sink runs
    ObjectStore m_store;
    std::map<void**, std::vector<Handed>> m_lists; // what was given out, with the copies in it
};

} // namespace ral

#endif
