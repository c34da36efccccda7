// The hostile vendor library's own interface, beside the MV_ entry points of mv.h. It answers like a small
// system of up to eight adapters, with faults in some of its answers: a seed decides which, so that a run can
// be repeated, on every ABI. It never writes beyond what the caller says that its memory holds.
//
// Until mvhostile_start is called, the environment variable MVHOSTILE_SEED gives the seed, and
// MVHOSTILE_FAULT the name of the one fault to be used; without them the seed is 1, and all faults are used.
// What cannot be read there is told on standard error, and the library then sees no adapter. Safe from
// several threads, but only calls in the same order get the same answers.
#ifndef ZARNEK_DEVKIT_MVHOSTILE_CONTROL_H
#define ZARNEK_DEVKIT_MVHOSTILE_CONTROL_H

#include "common/devkit_hooks.h"

#ifdef __cplusplus
extern "C" {
#endif

// Begins anew: no answers, no strikes. `fault` is the only one that is used, null for all. Returns 0, or 1
// for an unknown name, and nothing has changed then.
DEVKIT_EXPORT int mvhostile_start(unsigned int seed, const char* fault);

// Answers given since the start, those that refuse a call included.
DEVKIT_EXPORT unsigned int mvhostile_answers(void);
// The sum of all NumReturned since the start: the entries that lists were said to have.
DEVKIT_EXPORT unsigned int mvhostile_entries(void);

// The faults by index from 0: name, what it does, and in how many answers since the start it was. Null and 0
// past the end.
DEVKIT_EXPORT const char* mvhostile_fault_name(unsigned int index);
DEVKIT_EXPORT const char* mvhostile_fault_effect(unsigned int index);
DEVKIT_EXPORT unsigned int mvhostile_strikes(unsigned int index);

// Receives one line per answer with its number and the faults in it, such as
// `17 MV_PD_GetConfig(0) = 0: entry-cut, id-edge`.
DEVKIT_EXPORT void mvhostile_set_call_sink(devkit_text_sink sink, void* context);

#ifdef __cplusplus
}
#endif

#endif
