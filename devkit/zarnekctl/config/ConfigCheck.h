// Both configuration files looked through at once.
#ifndef ZARNEKCTL_CONFIG_CHECK_H
#define ZARNEKCTL_CONFIG_CHECK_H

#include "zarnekctl/config/ConfigFolder.h"
#include "zarnekctl/config/Finding.h"

#include <string>
#include <vector>

namespace zarnekctl
{

class ConfigCheck
{
  public:
    // The vendor library is tried too, in this folder first; not when the folder is empty.
    explicit ConfigCheck(const ConfigFolder& config, const std::filesystem::path& libraryFolder = {});

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
