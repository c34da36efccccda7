// The folder of the host's configuration. Safe from several threads.
#ifndef ZARNEK_DEVKIT_MORLAN_INSTALLFOLDER_H
#define ZARNEK_DEVKIT_MORLAN_INSTALLFOLDER_H

#include "common/files.h"
#include "morlan/EnvironmentSetting.h"

#include <mutex>
#include <optional>
#include <string>

namespace morlan
{

class InstallFolder
{
  public:
    // As an EnvironmentSetting. The folder that bears the name now is held open until the next call.
    void set(const char* path);
    void reset();
    std::optional<std::string> path() const { return m_path.get(); }

    // Where a file is to be written: for a path that begins with the folder's, below the folder that is held,
    // whatever has that name by now.
    devkit::FilePlace placeOf(const std::string& file) const;

  private:
    EnvironmentSetting m_path{"MORLAN_INSTALL_PATH"};
    mutable std::mutex m_mutex;
    std::string m_heldName; // with the slash behind it
    devkit::Descriptor m_held;
};

} // namespace morlan

#endif
