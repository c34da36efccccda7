#include "zarnekctl/config/Installation.h"

#include "zarnekctl/config/Failure.h"

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;

namespace zarnekctl
{

namespace
{

constexpr const char* PLUGIN_NAME = "libpld_sm_zarnek.so";
constexpr const char* SCENARIOS = "scenarios";

bool isFile(const fs::path& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

std::optional<fs::path> firstFile(const std::vector<fs::path>& candidates)
{
    for (const fs::path& candidate : candidates)
        if (isFile(candidate))
            return candidate.lexically_normal();
    return std::nullopt;
}

} // namespace

Installation::Installation(const fs::path& executable)
    : m_folder(executable.parent_path()), m_prefix(m_folder.parent_path()),
      m_data((m_folder / ZARNEKCTL_DATA_FOLDER).lexically_normal())
{
}

Installation Installation::ofThisProgram()
{
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    if (error)
        throw Failure(ExitStatus::BadInput, "cannot find this program's own file: " + error.message());
    return Installation(executable);
}

fs::path Installation::plugin(const std::optional<std::string>& named) const
{
    if (named)
        return fs::absolute(*named);
    const auto found = firstFile({m_prefix / "lib" / PLUGIN_NAME,
                                  m_prefix / ZARNEKCTL_INSTALL_LIBDIR / PLUGIN_NAME, m_folder / PLUGIN_NAME});
    if (!found)
        throw Failure(ExitStatus::BadInput, std::string("no ") + PLUGIN_NAME + " beside " +
                                                m_folder.string() +
                                                "; build it, or name the file with --plugin");
    return *found;
}

fs::path Installation::shippedConfig(const std::string& name) const
{
    const auto found = firstFile({m_data / "config" / name});
    if (!found)
        throw Failure(ExitStatus::BadInput,
                      "the shipped " + name +
                          " is missing; install it, or name a folder that has one with --config");
    return *found;
}

std::optional<fs::path> Installation::shippedScenario(const std::string& name) const
{
    const fs::path folder = m_data / SCENARIOS;
    return firstFile({folder / name, folder / (name + ".json")});
}

std::vector<std::string> Installation::shippedScenarios() const
{
    std::vector<std::string> names;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_data / SCENARIOS, error))
        if (entry.path().extension() == ".json")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace zarnekctl
