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

using devkit::IniFile;
using devkit::quoted;
using morlan::Morlan;

namespace
{

Morlan& library()
{
    return Morlan::instance();
}

// `compose` gives the line; it is asked only when someone listens.
template <class Compose>
void report(Compose compose)
{
    if (library().callSink.isSet())
        library().callSink.call(std::string(compose()).c_str());
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

int privateIniValue(const char* section, const char* key, char* buffer, unsigned int* size)
{
    if (section == nullptr || key == nullptr || buffer == nullptr || size == nullptr || *size == 0)
        return Morlan::FAILED;
    const std::optional<std::string> file = library().privateIni.get();
    if (!file)
        return Morlan::FAILED;
    const std::optional<std::string> value = IniFile(*file).value(section, key);
    if (!value)
        return Morlan::FAILED;
    *size = static_cast<unsigned int>(devkit::copyText(*value, buffer, *size) + 1);
    return 0;
}

bool isTextArgument(const void* value, unsigned int size)
{
    return value != nullptr && std::memchr(value, '\0', size) != nullptr;
}

} // namespace

void DebugPrint(const char* format, ...)
{
    library().faults.enter(__func__);
    if (format == nullptr || library().debugSink.call(format))
        return;
    // In one piece, so that lines of several threads stay whole.
    const std::string line = std::string(format) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void* SMMutexCreate(int)
{
    if (library().faults.enter(__func__))
        return nullptr;
    return library().mutexes.create();
}

int SMMutexLock(void* mutex, int timeout)
{
    if (const auto fault = library().faults.enter(__func__))
        return *fault;
    return library().mutexes.lock(mutex, timeout) ? 0 : Morlan::FAILED;
}

int SMMutexUnLock(void* mutex)
{
    if (const auto fault = library().faults.enter(__func__))
        return *fault;
    return library().mutexes.unlock(mutex) ? 0 : Morlan::FAILED;
}

int SMMutexDestroy(void* mutex)
{
    if (const auto fault = library().faults.enter(__func__))
        return *fault;
    return library().mutexes.destroy(mutex) ? 0 : Morlan::FAILED;
}

void* SMThreadStart(void (*function)(void*), void* argument)
{
    void* thread = nullptr;
    if (!library().faults.enter(__func__) && function != nullptr)
        thread = library().threads.create(function, argument);
    report([&] { return "SMThreadStart() = " + (thread == nullptr ? "failed" : threadText(thread)); });
    // Only now, so that what the thread does is seen behind its start.
    library().threads.release(thread);
    return thread;
}

int SMThreadStop(void* thread)
{
    int status = 0;
    if (const auto fault = library().faults.enter(__func__))
        status = *fault;
    else if (!library().threads.stop(thread))
        status = Morlan::FAILED;
    report([&] { return "SMThreadStop(" + threadText(thread) + ")" + statusText(status); });
    return status;
}

void* SMLibLoad(const char* path)
{
    void* loaded = nullptr;
    if (!library().faults.enter(__func__) && path != nullptr)
        loaded = dlopen(path, RTLD_LAZY);
    report([&] { return "SMLibLoad(" + quoted(path) + ") = " + (loaded == nullptr ? "failed" : "ok"); });
    return loaded;
}

int SMLibUnLoad(void* loaded)
{
    int status = 0;
    if (const auto fault = library().faults.enter(__func__))
        status = *fault;
    else if (loaded == nullptr || dlclose(loaded) != 0)
        status = Morlan::FAILED;
    report([&] {
        return (loaded == nullptr ? "SMLibUnLoad(null)" : "SMLibUnLoad(library)") + statusText(status);
    });
    return status;
}

void* sm_create()
{
    if (library().faults.enter(__func__))
        return nullptr;
    return library().strings.create();
}

int GetIniFilePath(void* string)
{
    int status = Morlan::FAILED;
    std::optional<std::string> path;
    if (const auto fault = library().faults.enter(__func__)) {
        status = *fault;
    } else {
        path = library().installPath.get();
        if (path && library().strings.assign(string, *path))
            status = 0;
    }
    report([&] {
        return "GetIniFilePath()" + statusText(status) +
               (status == 0 && path ? ", " + quoted(path->c_str()) : "");
    });
    return status;
}

unsigned int sm_strlen(const void* string)
{
    library().faults.enter(__func__);
    return static_cast<unsigned int>(library().strings.length(string));
}

void sm_destroy(void* string)
{
    library().faults.enter(__func__);
    library().strings.destroy(string);
}

int SSGetPrivateIniValue(const char* section, const char* key, char* buffer, unsigned int* size)
{
    const unsigned int room = size == nullptr ? 0 : *size;
    const auto fault = library().faults.enter(__func__);
    const int status = fault ? *fault : privateIniValue(section, key, buffer, size);
    report([&] {
        return "SSGetPrivateIniValue(" + quoted(section) + ", " + quoted(key) + ", " + std::to_string(room) +
               ")" + statusText(status) + (!fault && status == 0 ? ", " + quoted(buffer) : "");
    });
    return status;
}

int SMWriteINIPathFileValue(const char* section, const char* key, int type, const void* value,
                            unsigned int size, const char* path, int flag)
{
    const char* const text = isTextArgument(value, size) ? static_cast<const char*>(value) : nullptr;
    int status = Morlan::FAILED;
    if (const auto fault = library().faults.enter(__func__))
        status = *fault;
    else if (section != nullptr && key != nullptr && text != nullptr && path != nullptr &&
             IniFile(path).write(section, key, text))
        status = 0;
    report([&] {
        return "SMWriteINIPathFileValue(" + quoted(section) + ", " + quoted(key) + ", " +
               std::to_string(type) + ", " + quoted(text) + ", " + std::to_string(size) + ", " +
               quoted(path) + ", " + std::to_string(flag) + ")" + statusText(status);
    });
    return status;
}
