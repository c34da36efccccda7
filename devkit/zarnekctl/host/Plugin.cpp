#include "zarnekctl/host/Plugin.h"

#include "zarnekctl/config/Failure.h"

#include <dlfcn.h>

namespace zarnekctl
{

namespace
{

constexpr const char* entryName = "libpld_sm_zarnek_entry";

std::string loaderMessage(const std::string& fallback)
{
    const char* reason = dlerror();
    return reason == nullptr ? fallback : reason;
}

} // namespace

const char* wordOf(ControlCommand command)
{
    switch (command) {
    case ControlCommand::Initialise:
        return "initialise";
    case ControlCommand::StartMonitoring:
        return "start monitoring";
    case ControlCommand::Discover:
        return "discover";
    case ControlCommand::Terminate:
        return "terminate";
    case ControlCommand::StopMonitoring:
        return "stop monitoring";
    }
    return "unknown";
}

Plugin::Plugin(const std::filesystem::path& file, Trace& trace) : m_trace(trace)
{
    // Without a slash the loader would search its own folders for the file that was named.
    void* library = dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        throw Failure(ExitStatus::BadInput, "cannot load the plug-in: " + loaderMessage(file.string()) +
                                                "; name another file with --plugin");
    m_entry = reinterpret_cast<Entry>(dlsym(library, entryName));
    if (m_entry == nullptr)
        throw Failure(ExitStatus::BadInput, file.string() + ": not the plug-in, it exports no " + entryName +
                                                "; name another file with --plugin");
}

unsigned int Plugin::command(ControlCommand command, void* input, void** output)
{
    const auto number = static_cast<unsigned int>(command);
    const std::string name = std::to_string(number) + " (" + wordOf(command) + ")";
    m_trace.line("cmd", name);
    const unsigned int status = m_entry(number, input, output);
    m_trace.line("cmd", name + " = " + std::to_string(status));
    return status;
}

} // namespace zarnekctl
