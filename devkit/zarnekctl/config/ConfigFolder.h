// The folder with the two configuration files of a run. The event sequence number is written there, so it
// belongs to the user, never to the source tree or the install prefix.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_CONFIGFOLDER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_CONFIGFOLDER_H

#include "zarnekctl/config/Installation.h"
#include <zarnek_ini.h>

#include <filesystem>
#include <optional>
#include <string>

namespace zarnekctl
{

class ConfigFolder
{
  public:
    // The named folder, or that of the user: $XDG_STATE_HOME/zarnek, otherwise ~/.local/state/zarnek. Throws
    // Failure (BadInput) when neither variable is set.
    explicit ConfigFolder(const std::optional<std::string>& named);

    // Makes the folder if it is missing, and puts the shipped files where there are none; files that are
    // there stay as they are. Throws Failure (BadInput).
    void prepare(const Installation& installation) const;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path privateIni() const { return m_path / "private.ini"; }
    std::filesystem::path mapping() const { return m_path / (INI_ALERT_MAPPING_FILE + 1); }
    // Where the simulator keeps the live machine's event numbers.
    std::filesystem::path liveState() const { return m_path / "live-events.state"; }

  private:
    std::filesystem::path m_path; // absolute
};

} // namespace zarnekctl

#endif
