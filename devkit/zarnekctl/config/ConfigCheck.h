// Both configuration files looked through at once.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_CONFIGCHECK_H
#define ZARNEK_DEVKIT_ZARNEKCTL_CONFIGCHECK_H

#include "zarnekctl/config/ConfigFolder.h"
#include "zarnekctl/config/Finding.h"
#include "zarnekctl/config/PrivateIniCheck.h"

#include <string>
#include <vector>

namespace zarnekctl
{

class ConfigCheck
{
  public:
    // The vendor library is tried too when there is a probe.
    explicit ConfigCheck(const ConfigFolder& config, const LibraryProbe& probe = {});

    // The findings as lines, the private INI's first; those alone that are at least as bad as `atLeast`.
    std::vector<std::string> lines(Effect atLeast = Effect::Surprise) const;
    Effect worst() const;
    // Throws Failure (BadInput) with the lines that are at least so bad, when there are any.
    void refuse(Effect atLeast) const;

  private:
    struct File {
        std::string path;
        Findings findings;
    };
    std::vector<File> m_files;
};

} // namespace zarnekctl

#endif
