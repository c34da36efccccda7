// Plays a scenario: each adapter goes through the steps of the timeline at its own polls.
#ifndef ZARNEK_DEVKIT_MVSIM_SCENARIOSOURCE_H
#define ZARNEK_DEVKIT_MVSIM_SCENARIOSOURCE_H

#include "mvsim/model/ISource.h"
#include "mvsim/scenario/Scenario.h"

namespace mvsim
{

class ScenarioSource : public ISource
{
  public:
    explicit ScenarioSource(Scenario scenario);

    std::vector<PlayedAdapter> adapters() override;
    CallRules vendorRules() const override { return m_scenario.vendorRules; }
    void beginPoll(unsigned int index, PlayedAdapter& adapter) override;
    unsigned int lastPoll() const override;
    std::uint32_t startSequence() const override { return m_scenario.sequence; }
    void keepSequence(std::uint32_t) override {} // each run of a scenario counts anew

  private:
    Scenario m_scenario;
};

} // namespace mvsim

#endif
