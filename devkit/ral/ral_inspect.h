// The stand-in data engine's own interface, beside ral.h: what it holds, what happens to it, and which of its
// calls fail. Safe from several threads.
//
// An object is known by its identity: object type, vendor layer, and the values of the properties that its
// nexus names. A property that the object lacks counts there as a value of its own, so that two objects
// lacking it have the same identity. An object that comes again under another parent moves there; deleting
// one deletes all below it. Calls on objects that are not there give 256, and so does a parent that is the
// object itself or stands below it.
#ifndef ZARNEK_DEVKIT_RAL_INSPECT_H
#define ZARNEK_DEVKIT_RAL_INSPECT_H

#include "common/devkit_hooks.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

// A copy of all that the data engine holds at one moment, objects in the order of their first insertion.
// The last thousand objects that came without an identity follow, marked incomplete.
typedef struct ral_snapshot ral_snapshot;

DEVKIT_EXPORT ral_snapshot* ral_snapshot_create(void);           // null without memory
DEVKIT_EXPORT void ral_snapshot_destroy(ral_snapshot* snapshot); // null does nothing
DEVKIT_EXPORT unsigned int ral_snapshot_count(const ral_snapshot* snapshot);
// An SDO object that belongs to the snapshot; null past the end.
DEVKIT_EXPORT const void* ral_snapshot_object(const ral_snapshot* snapshot, unsigned int index);
// Index of the object that it was inserted under, -1 at the top.
DEVKIT_EXPORT int ral_snapshot_parent(const ral_snapshot* snapshot, unsigned int index);
// Links made with RalLinkObjects in which this object is the upper one, in the order of linking.
DEVKIT_EXPORT unsigned int ral_snapshot_link_count(const ral_snapshot* snapshot, unsigned int index);
DEVKIT_EXPORT int ral_snapshot_link(const ral_snapshot* snapshot, unsigned int index, unsigned int link);
// How often the identity was inserted; 1 for an incomplete object.
DEVKIT_EXPORT unsigned int ral_snapshot_insertions(const ral_snapshot* snapshot, unsigned int index);
// Nonzero for an object that came without object type or nexus and has no identity.
DEVKIT_EXPORT int ral_snapshot_incomplete(const ral_snapshot* snapshot, unsigned int index);

// How many objects came without an identity, those that no snapshot shows any more included.
DEVKIT_EXPORT unsigned int ral_incomplete_count(void);

// The identity of any SDO object as a text, such as `772/9 24600=0 24810=3`. Copies at most `size` bytes of
// it, terminator included, and returns its whole length; 0 for an object without an identity, for null, and
// without memory.
DEVKIT_EXPORT size_t ral_object_identity(const void* object, char* buffer, size_t size);

typedef enum ral_change {
    RAL_CHANGE_INSERTED = 0,  // before is null
    RAL_CHANGE_UPDATED = 1,   // an identity that was there
    RAL_CHANGE_DELETED = 2,   // after is null
    RAL_CHANGE_INCOMPLETE = 3 // an object without an identity; before is null
} ral_change;

// Receives each change with the object's state before and after it, on the calling thread and in the order of
// the changes; where a deletion takes several, the lowest comes first. The objects are borrowed for the call.
typedef void (*ral_change_sink)(void* context, ral_change change, const void* before, const void* after);
DEVKIT_EXPORT void ral_set_change_sink(ral_change_sink sink, void* context);

// Receives each notification that RalSendNotification accepted, on the calling thread; borrowed for the call.
typedef void (*ral_notification_sink)(void* context, const void* object);
DEVKIT_EXPORT void ral_set_notification_sink(ral_notification_sink sink, void* context);

// Receives one line per call of ral.h, behind what the call sends to the other sinks: name, objects by
// identity (`incomplete` without one), result, such as
// `RalInsertObject(772/9 24600=0 24810=3, under 769/9 24600=0) = 0`. Pointers never show.
DEVKIT_EXPORT void ral_set_call_sink(devkit_text_sink sink, void* context);

// Planned failures, as morlan_fail_call of morlan_inspect.h. A failed insertion or notification frees what
// was handed over, as an accepted one does.
DEVKIT_EXPORT int ral_fail_call(const char* call, unsigned int nth, unsigned int count, int status);
DEVKIT_EXPORT void ral_clear_faults(void);
DEVKIT_EXPORT unsigned int ral_call_count(const char* call);

// Lists given out and not yet given back.
DEVKIT_EXPORT unsigned int ral_live_lists(void);
// Empties the data engine and takes all sinks, faults and counts back.
DEVKIT_EXPORT void ral_reset(void);

#ifdef __cplusplus
}
#endif

#endif
