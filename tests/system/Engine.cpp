#include "system/Engine.h"

#include "common/SdoObject.h"

#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <sdo.h>
#include <zarnek_ini.h>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <semaphore.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <ctime>
#include <thread>

namespace
{

std::atomic<unsigned int> g_sleeps{0};
sem_t g_wake{}; // counts from 0, within the process

} // namespace

extern "C" __attribute__((visibility("default"))) unsigned int sleep(unsigned int seconds)
{
    while (sem_trywait(&g_wake) == 0) { // a wake that came before
    }
    ++g_sleeps;
    timespec end{};
    clock_gettime(CLOCK_REALTIME, &end);
    end.tv_sec += seconds;
    sem_timedwait(&g_wake, &end); // a signal ends it as it ends the C library's
    return 0;
}

void wakeSleeper()
{
    sem_post(&g_wake);
}

Engine::Engine()
{
    morlan_set_debug_sink(LineLog::sink, &m_log);
    ral_set_notification_sink(onNotification, this);
    writeMapping(TempFolder::readFile(std::string(ZARNEK_SOURCE_DIR "/config") + INI_ALERT_MAPPING_FILE));
}

Engine::~Engine()
{
    unloadPlugin();
    morlan_reset(); // the sinks go ahead of the log that they write into
    ral_reset();
}

void Engine::loadPlugin()
{
    unloadPlugin();
    m_library = dlopen(ZARNEK_PLUGIN, RTLD_NOW);
    ASSERT_NE(m_library, nullptr) << dlerror();
    m_entry = reinterpret_cast<ZARNEK_Entry_t>(dlsym(m_library, ZARNEK_ENTRY_NAME));
    ASSERT_NE(m_entry, nullptr);
}

void Engine::unloadPlugin()
{
    if (m_library != nullptr) {
        EXPECT_EQ(morlan_wait_threads(5000), 0) << "a thread still runs in the plug-in";
        dlclose(m_library);
    }
    m_library = nullptr;
}

bool Engine::isLoaded() const
{
    void* const library = dlopen(ZARNEK_PLUGIN, RTLD_NOW | RTLD_NOLOAD);
    return library != nullptr && dlclose(library) == 0;
}

unsigned int Engine::call(unsigned int command, void* input, void** output)
{
    return m_entry(command, input, output);
}

unsigned int Engine::send(unsigned int command)
{
    return call(command, nullptr, &m_slot);
}

unsigned int Engine::discover(unsigned int firstNumber)
{
    unsigned int total = 0xAAAAAAAA;
    void* output = &total;
    EXPECT_EQ(m_entry(ZARNEK_CMD_DISCOVER, &firstNumber, &output), ZARNEK_STATUS_DONE);
    return total;
}

unsigned int Engine::monitor()
{
    // The plug-in's two threads must not log at once, so the event thread waits for the command's end.
    morlan_hold_threads(1);
    const unsigned int status = send(ZARNEK_CMD_START_MONITORING);
    poll();
    return status;
}

void Engine::poll()
{
    const unsigned int sleeps = g_sleeps;
    wakeSleeper();
    morlan_hold_threads(0);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (morlan_running_threads() != 0 && sleeps == g_sleeps && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::microseconds(200));
}

bool Engine::logged(const std::string& line) const
{
    const auto lines = m_log.lines();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

unsigned int Engine::objects(unsigned int type) const
{
    ral_snapshot* const snapshot = ral_snapshot_create();
    unsigned int count = 0;
    for (unsigned int index = 0; index < ral_snapshot_count(snapshot); ++index)
        count += numberOf(ral_snapshot_object(snapshot, index), SSPROP_OBJTYPE_U32) == type ? 1 : 0;
    ral_snapshot_destroy(snapshot);
    return count;
}

unsigned int Engine::links() const
{
    ral_snapshot* const snapshot = ral_snapshot_create();
    unsigned int count = 0;
    for (unsigned int index = 0; index < ral_snapshot_count(snapshot); ++index)
        count += ral_snapshot_link_count(snapshot, index);
    ral_snapshot_destroy(snapshot);
    return count;
}

void Engine::onNotification(void* engine, const void* object)
{
    static_cast<Engine*>(engine)->m_alerts.push_back(numberOf(object, SSPROP_ALERTNUMBER_U32));
}
