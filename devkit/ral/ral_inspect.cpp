#include "ral/ral_inspect.h"

#include "common/guarded.h"
#include "common/words.h"
#include "ral/Ral.h"
#include "ral/identity.h"

using ral::Ral;
using ral::SnapshotEntry;

struct ral_snapshot {
    std::vector<SnapshotEntry> entries;
};

namespace
{

// Null past the end.
const SnapshotEntry* entryOf(const ral_snapshot* snapshot, unsigned int index)
{
    return snapshot != nullptr && index < snapshot->entries.size() ? &snapshot->entries[index] : nullptr;
}

} // namespace

ral_snapshot* ral_snapshot_create()
{
    return devkit::guarded<ral_snapshot*>(nullptr,
                                          [] { return new ral_snapshot{Ral::instance().snapshot()}; });
}

void ral_snapshot_destroy(ral_snapshot* snapshot)
{
    delete snapshot;
}

unsigned int ral_snapshot_count(const ral_snapshot* snapshot)
{
    return snapshot == nullptr ? 0 : static_cast<unsigned int>(snapshot->entries.size());
}

const void* ral_snapshot_object(const ral_snapshot* snapshot, unsigned int index)
{
    const SnapshotEntry* const entry = entryOf(snapshot, index);
    return entry == nullptr ? nullptr : entry->object.get();
}

int ral_snapshot_parent(const ral_snapshot* snapshot, unsigned int index)
{
    const SnapshotEntry* const entry = entryOf(snapshot, index);
    return entry == nullptr ? -1 : entry->parent;
}

unsigned int ral_snapshot_link_count(const ral_snapshot* snapshot, unsigned int index)
{
    const SnapshotEntry* const entry = entryOf(snapshot, index);
    return entry == nullptr ? 0 : static_cast<unsigned int>(entry->links.size());
}

int ral_snapshot_link(const ral_snapshot* snapshot, unsigned int index, unsigned int link)
{
    const SnapshotEntry* const entry = entryOf(snapshot, index);
    return entry == nullptr || link >= entry->links.size() ? -1 : entry->links[link];
}

unsigned int ral_snapshot_insertions(const ral_snapshot* snapshot, unsigned int index)
{
    const SnapshotEntry* const entry = entryOf(snapshot, index);
    return entry == nullptr ? 0 : entry->insertions;
}

int ral_snapshot_incomplete(const ral_snapshot* snapshot, unsigned int index)
{
    const SnapshotEntry* const entry = entryOf(snapshot, index);
    return entry != nullptr && entry->incomplete ? 1 : 0;
}

unsigned int ral_incomplete_count()
{
    return Ral::instance().incomplete();
}

size_t ral_object_identity(const void* object, char* buffer, size_t size)
{
    return devkit::guarded(size_t{0}, [=] {
        const std::optional<ral::Identity> identity = ral::identityOf(object);
        if (!identity)
            return size_t{0};
        devkit::copyText(identity->text, buffer, size);
        return identity->text.size();
    });
}

void ral_set_change_sink(ral_change_sink sink, void* context)
{
    Ral::instance().changeSink.set(sink, context);
}

void ral_set_notification_sink(ral_notification_sink sink, void* context)
{
    Ral::instance().notificationSink.set(sink, context);
}

void ral_set_call_sink(devkit_text_sink sink, void* context)
{
    Ral::instance().callSink.set(sink, context);
}

int ral_fail_call(const char* call, unsigned int nth, unsigned int count, int status)
{
    return devkit::guarded(int{Ral::FAILED}, [=] {
        return Ral::instance().faults.plan(call, nth, count, status) ? 0 : Ral::FAILED;
    });
}

void ral_clear_faults()
{
    Ral::instance().faults.clearFaults();
}

unsigned int ral_call_count(const char* call)
{
    return Ral::instance().faults.calls(call);
}

unsigned int ral_live_lists()
{
    return Ral::instance().liveLists();
}

void ral_reset()
{
    Ral::instance().reset();
}
