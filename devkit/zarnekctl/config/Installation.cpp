#include "zarnekctl/config/Installation.h"

#include "zarnekctl/config/Failure.h"

#include <set>
#include <system_error>

namespace fs = std::filesystem;

namespace zarnekctl
{

namespace
{

constexpr const char* pluginName = "libpld_sm_zarnek.so";

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
    : m_folder(executable.parent_path()), m_prefix(m_folder.parent_path())
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
    const auto found = firstFile({m_prefix / "lib" / pluginName,
                                  m_prefix / ZARNEKCTL_INSTALL_LIBDIR / pluginName, m_folder / pluginName});
    if (!found)
        throw Failure(ExitStatus::BadInput, std::string("no ") + pluginName + " beside " + m_folder.string() +
                                                "; build it, or name the file with --plugin");
    return *found;
}

fs::path Installation::shippedConfig(const std::string& name) const
{
    const auto found = firstFile(
        {m_prefix / "share" / "zarnek" / "config" / name, fs::path(ZARNEKCTL_SOURCE_DIR) / "config" / name});
    if (!found)
        throw Failure(ExitStatus::BadInput,
                      "the shipped " + name +
                          " is missing; install it, or name a folder that has one with --config");
    return *found;
}

std::vector<fs::path> Installation::scenarioFolders() const
{
    return {m_prefix / "share" / "zarnek" / "scenarios", fs::path(ZARNEKCTL_SOURCE_DIR) / "scenarios"};
}

std::optional<fs::path> Installation::shippedScenario(const std::string& name) const
{
    std::vector<fs::path> candidates;
    for (const std::string& file : {name, name + ".json"})
        for (const fs::path& folder : scenarioFolders())
            candidates.push_back(folder / file);
    return firstFile(candidates);
}

std::vector<std::string> Installation::shippedScenarios() const
{
    std::set<std::string> names;
    for (const fs::path& folder : scenarioFolders()) {
        std::error_code error;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
            if (entry.path().extension() == ".json")
                names.insert(entry.path().stem().string());
    }
    return {names.begin(), names.end()};
}

} // namespace zarnekctl
