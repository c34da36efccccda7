// The stand-in support library's own interface, beside morlan.h: where its files are, what it says and does,
// which of its calls fail, and what an SDO object holds. The host and the tests look inside by it.
//
// Safe from several threads unless said otherwise. What lacks memory is not done: a setter leaves what was
// set, a clone is null, a planned failure is refused.
#ifndef ZARNEK_DEVKIT_MORLAN_INSPECT_H
#define ZARNEK_DEVKIT_MORLAN_INSPECT_H

#include "common/devkit_hooks.h"

#ifdef __cplusplus
extern "C" {
#endif

// The directory that GetIniFilePath gives. Empty: it gives an empty text. Null: it fails. The text is copied.
// Until this is called, the environment variable MORLAN_INSTALL_PATH decides; without it GetIniFilePath
// fails. The folder is held open: SMWriteINIPathFileValue goes on writing into it when its name meanwhile
// leads elsewhere.
DEVKIT_EXPORT void morlan_set_install_path(const char* directory);
// The file that SSGetPrivateIniValue reads; null: none, every key is missing. The text is copied.
// Until this is called, the environment variable MORLAN_PRIVATE_INI decides.
DEVKIT_EXPORT void morlan_set_private_ini(const char* file);

// Receives every DebugPrint. Null brings back the default: standard error, a line each.
DEVKIT_EXPORT void morlan_set_debug_sink(devkit_text_sink sink, void* context);
// Receives one line per call of the library, the text operations (DebugPrint, sm_...), SDO operations and
// mutexes left out: name, arguments, result, such as `SMLibLoad("libmvsim.so") = ok`. Pointers never show.
DEVKIT_EXPORT void morlan_set_call_sink(devkit_text_sink sink, void* context);

// Plans a failure: of the calls of `call` from now on, the nth (from 1) and the count - 1 behind it fail, all
// of them for a count of 0. A failing call does nothing and returns `status`, or null where it returns a
// pointer, and sm_strlen returns 0. Returns 0, or 1 for nth 0 and for an unknown name.
DEVKIT_EXPORT int morlan_fail_call(const char* call, unsigned int nth, unsigned int count, int status);
DEVKIT_EXPORT void morlan_clear_faults(void);
// How often `call` was called since load or the last morlan_reset, failed calls included.
DEVKIT_EXPORT unsigned int morlan_call_count(const char* call);

// What is still allocated; for leak tests.
DEVKIT_EXPORT unsigned int morlan_live_sdo_objects(void);
DEVKIT_EXPORT unsigned int morlan_live_strings(void);
DEVKIT_EXPORT unsigned int morlan_live_mutexes(void);

// While `hold` is nonzero, a thread that SMThreadStart makes waits before it runs its function. Stopping such
// a thread lets it run. The host holds the event thread until the starting command has returned.
DEVKIT_EXPORT void morlan_hold_threads(int hold);
// Threads that have not ended yet.
DEVKIT_EXPORT unsigned int morlan_running_threads(void);
// Waits until no thread runs, at most so many milliseconds; 0 when none runs.
DEVKIT_EXPORT int morlan_wait_threads(unsigned int milliseconds);

// The properties of an SDO object in the order of their first addition. `index` runs from 0; nonzero past the
// end. The value points into the object; for type 13 it is the nested object's handle. Not synchronised with
// changes of the same object.
DEVKIT_EXPORT unsigned int morlan_sdo_property_count(const void* object);
DEVKIT_EXPORT int morlan_sdo_property_at(const void* object, unsigned int index, unsigned short* id,
                                         unsigned char* type, const void** value, unsigned int* size);

// The same address for an object and its clones, until one of them changes; null for none. It stays good as
// long as one of those that share it lives unchanged.
DEVKIT_EXPORT const void* morlan_sdo_content(const void* object);

// SMSDOConfigClone and SMSDOConfigFree for the other stand-ins: not counted and never failed by plan, so that
// a planned failure strikes the plug-in's calls alone.
DEVKIT_EXPORT void* morlan_sdo_clone(const void* object);
DEVKIT_EXPORT void morlan_sdo_free(void* object);

// Back to the state after load: sinks, faults, counts, held threads, paths. Objects and threads stay.
DEVKIT_EXPORT void morlan_reset(void);

#ifdef __cplusplus
}
#endif

#endif
