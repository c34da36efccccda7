// The simulated vendor library's own interface, beside the MV_ entry points of mv.h: where the system that it
// plays comes from. Safe from several threads. What lacks memory is not done: an entry point fails, a planned
// failure is refused, a count is 0.
//
// Until one of the loaders is called, the environment variable MVSIM_SCENARIO names a scenario file, or
// MVSIM_LIVE a sysfs root; without either the library sees no adapter.
#ifndef ZARNEK_DEVKIT_MVSIM_CONTROL_H
#define ZARNEK_DEVKIT_MVSIM_CONTROL_H

#include "common/devkit_hooks.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

// Loads a scenario file and starts it at poll 0. Returns 0; otherwise 1, with one line in `message` (at most
// `size` bytes with the terminator) that names the file, the place in it and what was expected there, and the
// system played before stays.
DEVKIT_EXPORT int mvsim_load_scenario(const char* file, char* message, size_t size);

// Plays the machine itself: one adapter with the whole disks and md arrays found below `sysfs_root` (normally
// "/sys"). `state_file` keeps the event sequence number over restarts; null: it starts at 1. Each
// MV_EVT_GetEvent of the adapter looks at the machine again and turns what changed into events.
DEVKIT_EXPORT int mvsim_load_live(const char* sysfs_root, const char* state_file, char* message, size_t size);

// The sequence number behind which events without a number of their own count on, if it is above the
// scenario's start value; as a real adapter's numbers go on growing over restarts. 0 takes it back. Applies
// to events not yet delivered; survives loading.
DEVKIT_EXPORT void mvsim_set_sequence_base(unsigned int sequence);

// Receives one line per call of an MV_ entry point: name, arguments, the answer's length, status, such as
// `MV_PD_GetHDInfo_Ext(0, list from 0, 1056) = 0, 8 entries`. Pointers never show.
DEVKIT_EXPORT void mvsim_set_call_sink(devkit_text_sink sink, void* context);

// One event as MV_EVT_GetEvent delivers it.
typedef struct mvsim_event {
    unsigned int adapter;
    unsigned int event_class;
    unsigned int code;
    unsigned int device;
    unsigned int sequence;
} mvsim_event;

// Receives each event on the polling thread, just before the call that delivers it returns.
typedef void (*mvsim_event_sink)(void* context, const mvsim_event* event);
DEVKIT_EXPORT void mvsim_set_event_sink(mvsim_event_sink sink, void* context);

// The number of polls begun: of MV_EVT_GetEvent calls for adapter 0.
DEVKIT_EXPORT unsigned int mvsim_polls(void);
// The last poll number at which the scenario's timeline does anything; 0 without a timeline.
DEVKIT_EXPORT unsigned int mvsim_last_poll(void);

// No adapters, no sinks, no sequence base, no planned failures, no counted calls, poll 0. The environment is
// not asked any more.
DEVKIT_EXPORT void mvsim_reset(void);

// Planned failures, as morlan_fail_call of morlan_inspect.h, for each entry point: a failing call does
// nothing and returns `status`.
DEVKIT_EXPORT int mvsim_fail_call(const char* call, unsigned int nth, unsigned int count, int status);
DEVKIT_EXPORT void mvsim_clear_faults(void);
DEVKIT_EXPORT unsigned int mvsim_call_count(const char* call);

#ifdef __cplusplus
}
#endif

#endif
