// A data engine in the test's process: loads the built plug-in, sends it commands, and looks at what arrives.
#ifndef ZARNEK_TESTS_ENGINE_H
#define ZARNEK_TESTS_ENGINE_H

#include "common/LineLog.h"
#include "common/StandIns.h"

#include <zarnek.h>

#include <string>
#include <vector>

class Engine : public StandIns
{
  public:
    // With the shipped alert mapping.
    Engine();
    ~Engine();

    // A fresh copy of the plug-in: its statics are as after load.
    void loadPlugin();
    void unloadPlugin();
    bool isLoaded() const; // also where something else than this object keeps the plug-in loaded
    // The exported function itself; exceptions come through.
    unsigned int call(unsigned int command, void* input, void** output);
    unsigned int send(unsigned int command);
    // Command 22; the total that came back.
    unsigned int discover(unsigned int firstNumber);
    // Command 21, and the event thread's first poll.
    unsigned int monitor();
    // Lets a held or sleeping event thread poll until it sleeps again or ends.
    static void poll();

    std::vector<std::string> log() const { return m_log.lines(); }
    bool logged(const std::string& line) const;
    // Objects of a type in the data engine, and notifications received.
    unsigned int objects(unsigned int type) const;
    unsigned int links() const;
    std::vector<unsigned int> alerts() const { return m_alerts; }

  private:
    static void onNotification(void* engine, const void* object);

    void* m_library = nullptr;
    ZARNEK_Entry_t m_entry = nullptr;
    void* m_slot = nullptr;
    LineLog m_log;
    std::vector<unsigned int> m_alerts;
};

// The event thread's sleep, which this program supplies in place of the C library's: its early end
// without a stop.
void wakeSleeper();

#endif
