// Both configuration files looked through at once, and the road on which they have libraries loaded.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_CONFIGCHECK_H
#define ZARNEK_DEVKIT_ZARNEKCTL_CONFIGCHECK_H

#include "zarnekctl/config/ConfigFolder.h"
#include "zarnekctl/config/Finding.h"
#include "zarnekctl/config/LoadRoad.h"
#include "zarnekctl/config/PrivateIniCheck.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zarnekctl
{

class ConfigCheck
{
  public:
    explicit ConfigCheck(const ConfigFolder& config) : ConfigCheck(config, {}, {}) {}
    // With the road on which both libraries are loaded, by this plug-in. Unless that road keeps monitoring
    // from working, the vendor library goes through the probe.
    ConfigCheck(const ConfigFolder& config, const std::filesystem::path& plugin, const LibraryProbe& probe);

    // The findings as lines, the private INI's first and the road's last; those alone that are at least as
    // bad as `atLeast`.
    std::vector<std::string> lines(Effect atLeast = Effect::Surprise) const;
    std::vector<std::string> roadLines() const;
    Effect worst() const;
    // Throws Failure (BadInput) with the lines that are at least so bad, when there are any.
    void refuse(Effect atLeast) const;

  private:
    struct File {
        std::string path;
        Findings findings;
    };
    LoadRoad m_road;
    std::vector<File> m_files;
};

} // namespace zarnekctl

#endif
