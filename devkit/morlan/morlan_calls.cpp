// The calls of morlan.h but for the SDO objects: each counts itself, fails if that is planned, does its work
// and, where it is one of those that show, reports itself to the call sink.
#include "morlan/exported_calls.h"

#include "common/IniFile.h"
#include "common/text.h"
#include "common/words.h"
#include "morlan/Morlan.h"

#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <string>

using devkit::quoted;
using morlan::Morlan;

namespace
{

Morlan& library()
{
    return Morlan::instance();
}

// `compose` gives the line; it is asked only when someone listens. A line is lost for want of memory, rather
// than the call it tells of.
template <class Compose>
void report(Compose compose)
{
    devkit::guarded([&compose] {
        if (library().callSink.isSet())
            library().callSink.call(std::string(compose()).c_str());
    });
}

std::string statusText(int status)
{
    return " = " + std::to_string(status);
}

std::string threadText(void* thread)
{
    const unsigned int number = library().threads.number(thread);
    if (number != 0)
        return "thread " + std::to_string(number);
    return thread == nullptr ? "null" : "unknown";
}

bool privateIniValue(const char* section, const char* key, char* buffer, unsigned int* size)
{
    if (section == nullptr || key == nullptr || buffer == nullptr || size == nullptr || *size == 0)
        return false;
    const std::optional<std::string> file = library().privateIni.get();
    if (!file)
        return false;
    const std::optional<std::string> value = devkit::iniValue(*file, section, key);
    if (!value)
        return false;
    *size = static_cast<unsigned int>(devkit::copyText(*value, buffer, *size) + 1);
    return true;
}

bool isTextArgument(const void* value, unsigned int size)
{
    return value != nullptr && std::memchr(value, '\0', size) != nullptr;
}

} // namespace

void DebugPrint(const char* format, ...)
{
    library().attempt(__func__, [format] {
        if (format == nullptr || library().debugSink.call(format))
            return true;
        // In one piece, so that lines of several threads stay whole.
        const std::string line = std::string(format) + '\n';
        return std::fwrite(line.data(), 1, line.size(), stderr) == line.size();
    });
}

void* SMMutexCreate(int)
{
    return library().obtain(__func__, [] { return library().mutexes.create(); });
}

int SMMutexLock(void* mutex, int timeout)
{
    return library().attempt(__func__, [&] { return library().mutexes.lock(mutex, timeout); });
}

int SMMutexUnLock(void* mutex)
{
    return library().attempt(__func__, [&] { return library().mutexes.unlock(mutex); });
}

int SMMutexDestroy(void* mutex)
{
    return library().attempt(__func__, [&] { return library().mutexes.destroy(mutex); });
}

void* SMThreadStart(void (*function)(void*), void* argument)
{
    void* const thread = library().obtain(__func__, [=] {
        return function == nullptr ? nullptr : library().threads.create(function, argument);
    });
    report([&] { return "SMThreadStart() = " + (thread == nullptr ? "failed" : threadText(thread)); });
    // Only now, so that what the thread does is seen behind its start.
    library().threads.release(thread);
    return thread;
}

int SMThreadStop(void* thread)
{
    const int status = library().attempt(__func__, [&] { return library().threads.stop(thread); });
    report([&] { return "SMThreadStop(" + threadText(thread) + ")" + statusText(status); });
    return status;
}

void* SMLibLoad(const char* path)
{
    void* const loaded =
        library().obtain(__func__, [path] { return path == nullptr ? nullptr : dlopen(path, RTLD_LAZY); });
    report([&] { return "SMLibLoad(" + quoted(path) + ") = " + (loaded == nullptr ? "failed" : "ok"); });
    return loaded;
}

int SMLibUnLoad(void* loaded)
{
    const int status = library().attempt(__func__, [&] { return loaded != nullptr && dlclose(loaded) == 0; });
    report([&] {
        return (loaded == nullptr ? "SMLibUnLoad(null)" : "SMLibUnLoad(library)") + statusText(status);
    });
    return status;
}

void* sm_create()
{
    return library().obtain(__func__, [] { return library().strings.create(); });
}

int GetIniFilePath(void* string)
{
    std::optional<std::string> path;
    const int status = library().attempt(__func__, [&] {
        path = library().installFolder.path();
        return path && library().strings.assign(string, *path);
    });
    report([&] {
        return "GetIniFilePath()" + statusText(status) +
               (status == 0 && path ? ", " + quoted(path->c_str()) : "");
    });
    return status;
}

unsigned int sm_strlen(const void* string)
{
    std::size_t length = 0;
    library().attempt(__func__, [&] {
        length = library().strings.length(string);
        return true;
    });
    return static_cast<unsigned int>(length);
}

void sm_destroy(void* string)
{
    library().attempt(__func__, [string] {
        library().strings.destroy(string);
        return true;
    });
}

int SSGetPrivateIniValue(const char* section, const char* key, char* buffer, unsigned int* size)
{
    const unsigned int room = size == nullptr ? 0 : *size;
    bool found = false;
    const int status =
        library().attempt(__func__, [&] { return found = privateIniValue(section, key, buffer, size); });
    report([&] {
        return "SSGetPrivateIniValue(" + quoted(section) + ", " + quoted(key) + ", " + std::to_string(room) +
               ")" + statusText(status) + (found ? ", " + quoted(buffer) : "");
    });
    return status;
}

int SMWriteINIPathFileValue(const char* section, const char* key, int type, const void* value,
                            unsigned int size, const char* path, int flag)
{
    const char* const text = isTextArgument(value, size) ? static_cast<const char*>(value) : nullptr;
    const int status = library().attempt(__func__, [&] {
        return section != nullptr && key != nullptr && text != nullptr && path != nullptr &&
               devkit::writeIniValue(library().installFolder.placeOf(path), section, key, text);
    });
    report([&] {
        return "SMWriteINIPathFileValue(" + quoted(section) + ", " + quoted(key) + ", " +
               std::to_string(type) + ", " + quoted(text) + ", " + std::to_string(size) + ", " +
               quoted(path) + ", " + std::to_string(flag) + ")" + statusText(status);
    });
    return status;
}
