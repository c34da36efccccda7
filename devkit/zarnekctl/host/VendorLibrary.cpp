#include "zarnekctl/host/VendorLibrary.h"

#include "zarnekctl/config/Failure.h"
#include "zarnekctl/config/LibrarySearch.h"
#include <zarnek_ini.h>

#include <array>
#include <dlfcn.h>
#include <system_error>

namespace zarnekctl
{

namespace
{

template <typename Function>
bool resolve(void* library, const char* symbol, Function& function)
{
    function = reinterpret_cast<Function>(dlsym(library, symbol));
    return function != nullptr;
}

} // namespace

VendorLibrary::VendorLibrary(const std::string& name, const std::filesystem::path& folder) : m_name(name)
{
    std::error_code error;
    const std::filesystem::path beside = libraryBeside(name, folder);
    const std::string path =
        std::filesystem::exists(beside, error) ? beside.string() : name + INI_LIBRARY_SUFFIX;
    void* library = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) {
        const char* reason = dlerror();
        throw Failure(ExitStatus::BadInput, "cannot open the vendor library: " +
                                                std::string(reason == nullptr ? path.c_str() : reason));
    }
    m_canCountAdapters = dlsym(library, "MV_Adapter_GetCount") != nullptr;
    const bool complete = resolve(library, "mvsim_load_scenario", m_loadScenario) &&
                          resolve(library, "mvsim_load_live", m_loadLive) &&
                          resolve(library, "mvsim_set_sequence_base", m_setSequenceBase) &&
                          resolve(library, "mvsim_set_call_sink", m_setCallSink) &&
                          resolve(library, "mvsim_set_event_sink", m_setEventSink) &&
                          resolve(library, "mvsim_last_poll", m_lastPoll);
    if (!complete)
        m_loadScenario = nullptr;
}

LibraryProbe VendorLibrary::probeIn(const std::filesystem::path& folder)
{
    return [folder](const std::string& name) { return VendorLibrary(name, folder).shortcoming(); };
}

std::string VendorLibrary::shortcoming() const
{
    return m_canCountAdapters ? ""
                              : "the vendor library " + m_name +
                                    " has no MV_Adapter_GetCount, so that the plug-in finds nothing";
}

void VendorLibrary::requireSimulator() const
{
    if (!isSimulator())
        throw Failure(ExitStatus::BadInput,
                      "the vendor library " + m_name +
                          " is no simulator and plays nothing; leave --scenario and --live away");
}

void VendorLibrary::playScenario(const std::filesystem::path& file)
{
    requireSimulator();
    std::array<char, 1024> message{};
    if (m_loadScenario(file.c_str(), message.data(), message.size()) != 0)
        throw Failure(ExitStatus::BadInput, message.data());
}

void VendorLibrary::playLive(const std::filesystem::path& sysfs, const std::filesystem::path& stateFile)
{
    requireSimulator();
    std::array<char, 1024> message{};
    if (m_loadLive(sysfs.c_str(), stateFile.c_str(), message.data(), message.size()) != 0)
        throw Failure(ExitStatus::BadInput, message.data());
}

void VendorLibrary::setSequenceBase(unsigned int sequence)
{
    if (isSimulator())
        m_setSequenceBase(sequence);
}

void VendorLibrary::setCallSink(devkit_text_sink sink, void* context)
{
    if (isSimulator())
        m_setCallSink(sink, context);
}

void VendorLibrary::setEventSink(mvsim_event_sink sink, void* context)
{
    if (isSimulator())
        m_setEventSink(sink, context);
}

unsigned int VendorLibrary::lastPoll() const
{
    return isSimulator() ? m_lastPoll() : 0;
}

} // namespace zarnekctl
