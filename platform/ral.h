// C interface of the data engine's object layer, libpld_sm_ral.so.
//
// All functions are cdecl and safe from several threads. Objects are SDO configuration objects (morlan.h).
// Results are statuses, 0 for success.
#ifndef ZARNEK_PLATFORM_RAL_H
#define ZARNEK_PLATFORM_RAL_H

#ifdef __cplusplus
extern "C" {
#endif

// Inserts or updates an object, under `parent` unless that is null. Both pass to the data engine, also when
// the call fails.
int RalInsertObject(void* object, void* parent);
// Deletes the object that bears the identity of `object`. The plug-in passes 1 and 0.
int RalDeleteObject(void* object, int arg1, int arg2);
// Associates two objects, named by their identity. Neither passes to the data engine.
int RalLinkObjects(void* upper, void* lower);
// Lists the objects of `type` that are associated with `object`, or those at the top for a null `object`.
// The list goes back through RalListFree. When there are none, the status is 0 and the count 0.
int RalListAssociatedObjects(void* object, unsigned int type, void*** list, unsigned int* count);
int RalListFree(void** list, unsigned int count);
// Sends a notification. The object passes to the data engine, also when the call fails.
int RalSendNotification(void* object);

#ifdef __cplusplus
}
#endif

#endif
