// A file that takes a result instead of standard output.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_OUTPUTFILE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_OUTPUTFILE_H

#include <optional>
#include <string>
#include <utility>

namespace zarnekctl
{

class OutputFile
{
  public:
    // `newMode` is that of a file which is not there yet; without it the umask decides.
    explicit OutputFile(std::string path, std::optional<unsigned int> newMode = std::nullopt)
        : m_path(std::move(path)), m_newMode(newMode)
    {
    }

    // In one step: a reader finds the old content or the new one, never a part. Throws Failure (PluginFailed)
    // with the old content still in place.
    void write(const std::string& content) const;

  private:
    std::string m_path;
    std::optional<unsigned int> m_newMode;
};

} // namespace zarnekctl

#endif
