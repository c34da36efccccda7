// Plays the machine that it runs on: one adapter with its whole disks and md arrays, looked at anew at each
// poll. What changed since the last look becomes events.
#ifndef ZARNEK_DEVKIT_MVSIM_LIVESOURCE_H
#define ZARNEK_DEVKIT_MVSIM_LIVESOURCE_H

#include "common/files.h"
#include "mvsim/live/NumberBook.h"
#include "mvsim/live/SeenMachine.h"
#include "mvsim/live/SysfsFolder.h"
#include "mvsim/live/TwinBook.h"
#include "mvsim/model/ISource.h"

#include <optional>
#include <string>

namespace mvsim
{

class LiveSource : public ISource
{
  public:
    // `sysfsRoot` is /sys or a copy of it. `stateFile` keeps the sequence number over restarts; empty for
    // none; its
    // folder is there, and held open. Throws a std::runtime_error with a one-line text when the root has no
    // block devices to look at.
    LiveSource(const std::string& sysfsRoot, const std::string& stateFile);

    std::vector<PlayedAdapter> adapters() override;
    CallRules vendorRules() const override { return {}; }
    void beginPoll(unsigned int index, PlayedAdapter& adapter) override;
    unsigned int lastPoll() const override { return 0; } // nothing is planned
    std::uint32_t startSequence() const override;
    void keepSequence(std::uint32_t last) override;

  private:
    SeenMachine look();
    Adapter adapterOf(const SeenMachine& machine) const;

    SysfsFolder m_root;
    std::optional<devkit::FilePlace> m_stateFile;
    TwinBook m_twins;
    NumberBook m_diskNumbers;
    NumberBook m_arrayNumbers;
    SeenMachine m_seen;
};

} // namespace mvsim

#endif
