// The road on which code comes into this process: the files that say what is loaded and those that are, with
// the folders and links that lead to them. Whoever can write one of these chooses what runs here, with the
// rights of the user who runs it.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_LOADROAD_H
#define ZARNEK_DEVKIT_ZARNEKCTL_LOADROAD_H

#include "zarnekctl/config/Finding.h"

#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace zarnekctl
{

class LoadRoad
{
  public:
    // What stands on the road, and what is wrong with it.
    using Item = std::pair<std::string, Finding>;

    // Looks at a file and all that leads to it, from the root of its path on. The way ends at what is
    // missing.
    void add(const std::filesystem::path& file);

    // What others than its owner and root can write, each once, in the order of the way: NoMonitoring for
    // root, Exposure for everybody else. For root also what another user owns, as Exposure.
    const std::vector<Item>& items() const { return m_items; }
    Effect worst() const;

  private:
    void look(const std::filesystem::path& place, const struct stat& status);

    std::vector<std::filesystem::path> m_seen;
    std::vector<Item> m_items;
};

} // namespace zarnekctl

#endif
