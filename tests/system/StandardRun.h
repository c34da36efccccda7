// The plug-in's whole life in a small system, with alerts of every kind.
#ifndef ZARNEK_TESTS_STANDARDRUN_H
#define ZARNEK_TESTS_STANDARDRUN_H

#include "system/Engine.h"
#include "system/ForkedRun.h"

// What goes wrong in a run.
class IFaultPlan
{
  public:
    virtual ~IFaultPlan() = default;
    // The plug-in is loaded and has had no command.
    virtual void begin(Outcome& outcome) = 0;
    // The plug-in is unloaded. Not called where it could not be.
    virtual void end() = 0;
};

// Two lives of the plug-in, the first under a plan and the second without one; to be called in a process that
// ends afterwards.
class StandardRun
{
  public:
    // The fault that is none where a call was to give something back.
    static constexpr char HELD[] = "the stand-ins hold [^\n]*\n";

    StandardRun();

    void disturbed(IFaultPlan& plan, Outcome& outcome);
    // One of them by itself. False when the plug-in could not be unloaded.
    bool liveUnder(IFaultPlan& plan, Outcome& outcome);
    void liveUndisturbed(Outcome& outcome);
    // What the plug-in has said so far, in all lives of this process.
    std::vector<std::string> log() const { return m_engine.log(); }
    void nameVendorLibrary(const std::string& name) const { m_engine.nameVendorLibrary(name); }
    // Learns from a run of its own what the second life has to leave; demands that alerts are part of it.
    void expectUndisturbed(ForkedRun& fork);
    // An answer that is the command's own: its status, and what it wrote.
    static void expectOwnAnswer(const Answer& answer, std::uintptr_t mostControllers = 1);

  private:
    // What a life without faults leaves: all objects in the data engine, the alerts that came, and the
    // mapping file.
    std::string undisturbed();
    void start();
    void command(unsigned int number, Outcome& outcome);
    void live(Outcome& outcome);
    std::string picture() const;
    static void noteAlert(void* run, const void* object);

    Engine m_engine;
    std::string m_expected;
    std::string m_scenario;
    std::string m_mapping;
    std::string m_alerts;
};

#endif
