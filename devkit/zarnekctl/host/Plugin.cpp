#include "zarnekctl/host/Plugin.h"

#include "zarnekctl/config/Failure.h"

#include <dlfcn.h>

namespace zarnekctl
{

namespace
{

std::string loaderMessage(const std::string& fallback)
{
    const char* reason = dlerror();
    return reason == nullptr ? fallback : reason;
}

} // namespace

const char* commandWord(unsigned int number)
{
    switch (number) {
    case ZARNEK_CMD_INITIALIZE:
        return "initialise";
    case ZARNEK_CMD_START_MONITORING:
        return "start monitoring";
    case ZARNEK_CMD_DISCOVER:
        return "discover";
    case ZARNEK_CMD_TERMINATE:
        return "terminate";
    case ZARNEK_CMD_STOP_MONITORING:
        return "stop monitoring";
    default:
        return "unknown";
    }
}

Plugin::Plugin(const std::filesystem::path& file, Trace& trace) : m_trace(trace)
{
    // Without a slash the loader would search its own folders for the file that was named.
    void* library = dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        throw Failure(ExitStatus::BadInput, "cannot load the plug-in: " + loaderMessage(file.string()) +
                                                "; name another file with --plugin");
    m_entry = reinterpret_cast<ZARNEK_Entry_t>(dlsym(library, ZARNEK_ENTRY_NAME));
    if (m_entry == nullptr)
        throw Failure(ExitStatus::BadInput, file.string() + ": not the plug-in, it exports no " +
                                                ZARNEK_ENTRY_NAME + "; name another file with --plugin");
}

unsigned int Plugin::command(unsigned int number, void* input, void** output)
{
    const std::string name = std::to_string(number) + " (" + commandWord(number) + ")";
    m_trace.line("cmd", name);
    const unsigned int status = m_entry(number, input, output);
    m_trace.line("cmd", name + " = " + std::to_string(status));
    return status;
}

} // namespace zarnekctl
