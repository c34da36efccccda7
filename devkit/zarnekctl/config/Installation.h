// Where the files are that zarnekctl comes with, in the build tree and below an install prefix alike.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_INSTALLATION_H
#define ZARNEK_DEVKIT_ZARNEKCTL_INSTALLATION_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zarnekctl
{

class Installation
{
  public:
    // `executable` is the path of the running program.
    explicit Installation(const std::filesystem::path& executable);
    static Installation ofThisProgram();

    // The plug-in's file as a path from the root: the named one, otherwise that beside the program or in the
    // neighbouring library folder. Throws Failure (BadInput) when none is named and none is there.
    std::filesystem::path plugin(const std::optional<std::string>& named) const;
    // A configuration file as shipped. Throws Failure (BadInput).
    std::filesystem::path shippedConfig(const std::string& name) const;
    // A shipped scenario by file name, with or without its ".json".
    std::optional<std::filesystem::path> shippedScenario(const std::string& name) const;
    // The names of the shipped scenarios, sorted; empty when none are there.
    std::vector<std::string> shippedScenarios() const;

  private:
    std::filesystem::path m_folder; // of the executable
    std::filesystem::path m_prefix; // the folder above it
    std::filesystem::path m_data;   // shipped configuration and scenarios
};

} // namespace zarnekctl

#endif
