// C interface of the support library, libmorlan.so.9: debug text, mutexes, threads, library loading,
// INI access and SDO configuration objects.
//
// All functions are cdecl. Untyped pointers are opaque handles. Where a result is a status, 0 is success.
#ifndef ZARNEK_PLATFORM_MORLAN_H
#define ZARNEK_PLATFORM_MORLAN_H

#ifdef __cplusplus
extern "C" {
#endif

// Prints one line of debug text. The plug-in hands over finished text in the place of the format and
// nothing behind it.
void DebugPrint(const char* format, ...);

// A process-local mutex. `arg` is 0; null on failure.
void* SMMutexCreate(int arg);
// Waits up to `timeout` milliseconds; -1 waits without limit. A thread may lock what it holds, and unlocks it
// as often.
int SMMutexLock(void* mutex, int timeout);
int SMMutexUnLock(void* mutex);
int SMMutexDestroy(void* mutex);

// Runs function(argument) on a new thread. The handle stays valid for SMThreadStop; null on failure.
void* SMThreadStart(void (*function)(void*), void* argument);
// Wakes the thread if it is in the C library's sleep, and returns when it has ended; may be called again with
// the same handle.
int SMThreadStop(void* thread);

void* SMLibLoad(const char* path);
// Takes any handle that dlopen returned.
int SMLibUnLoad(void* library);

// A string object: its address is that of its zero-terminated text. Null on failure.
void* sm_create(void);
// Fills a string object with the install directory; nonzero on failure, and for null.
int GetIniFilePath(void* string);
unsigned int sm_strlen(const void* string);
// May be called for null, and again with an address that was destroyed.
void sm_destroy(void* string);

// Copies one value of the private INI, at most *size bytes with the terminator; *size becomes the number of
// bytes copied. A missing key is a nonzero result and leaves the buffer alone.
int SSGetPrivateIniValue(const char* section, const char* key, char* buffer, unsigned int* size);
// Writes or replaces one key of the INI file at the absolute `path`. `type` and `flag` are 1.
int SMWriteINIPathFileValue(const char* section, const char* key, int type, const void* value,
                            unsigned int size, const char* path, int flag);

// SDO objects: bags of properties, each with a 16-bit id, a type and a value. An object holds one value per
// id: a later addition replaces the earlier one. A null object is cloned to null; all other calls fail on it
// and do nothing else.
void* SMSDOConfigAlloc(void);
int SMSDOConfigFree(void* object);
void* SMSDOConfigClone(const void* object);
// Copies `size` bytes of value. For type 13 `value` is the nested object's handle and passes to `object`.
int SMSDOConfigAddData(void* object, unsigned short id, unsigned char type, const void* value,
                       unsigned int size, int flag);
// Copies the value out; *size is the room on entry and the value's length on return.
int SMSDOConfigGetDataByID(const void* object, unsigned short id, int index, void* value, unsigned int* size);
// Points into the object: valid while the object is neither changed nor freed.
int GetProperty2(const void* object, unsigned short id, void** value, unsigned char* type,
                 unsigned int* size);

#ifdef __cplusplus
}
#endif

#endif
