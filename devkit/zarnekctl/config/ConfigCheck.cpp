#include "zarnekctl/config/ConfigCheck.h"

#include "common/files.h"
#include "common/text.h"
#include "zarnekctl/config/Failure.h"
#include "zarnekctl/config/LibrarySearch.h"
#include "zarnekctl/config/MappingCheck.h"

#include <algorithm>
#include <system_error>
#include <unistd.h>

namespace zarnekctl
{

namespace
{

Findings checkMappingFile(const std::filesystem::path& path)
{
    std::string content;
    if (const auto read = devkit::readFile(path.string(), content); read != devkit::FileRead::Done)
        return {{1, Effect::NoMonitoring, devkit::reasonOf(read), PUT_THE_FILE_THERE}};
    Findings findings = MappingCheck(content).run();
    // The file is replaced, so that the right to write into its folder counts.
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::canonical(path, error).parent_path();
    if (access(folder.c_str(), W_OK) != 0)
        findings.push_back({1, Effect::Repetition,
                            "the folder cannot be written, so that the sequence number is not kept and the "
                            "next run tells the same alerts again",
                            "give yourself the right to write there, or name another folder with --config"});
    return findings;
}

LoadRoad roadOf(const ConfigFolder& config, const std::filesystem::path& plugin)
{
    LoadRoad road;
    if (plugin.empty())
        return road;
    for (const std::filesystem::path& file : {config.privateIni(), config.mapping(), plugin})
        road.add(file);
    const std::string name = vendorLibraryName(config.privateIni());
    if (!name.empty())
        for (const std::filesystem::path& file : libraryPlaces(name, plugin.parent_path()))
            road.add(file);
    return road;
}

} // namespace

ConfigCheck::ConfigCheck(const ConfigFolder& config, const std::filesystem::path& plugin,
                         const LibraryProbe& probe)
    : m_road(roadOf(config, plugin)),
      // To open a library is to run it.
      m_files{{config.privateIni().string(),
               checkPrivateIni(config.privateIni(),
                               m_road.worst() < Effect::NoMonitoring ? probe : LibraryProbe())},
              {config.mapping().string(), checkMappingFile(config.mapping())}}
{
    for (const auto& [path, finding] : m_road.items())
        m_files.push_back({path, {finding}});
}

std::vector<std::string> ConfigCheck::lines(Effect atLeast) const
{
    std::vector<std::string> lines;
    for (const File& file : m_files) {
        for (const Finding& finding : file.findings)
            if (finding.effect >= atLeast)
                lines.push_back(finding.text(file.path));
    }
    return lines;
}

std::vector<std::string> ConfigCheck::roadLines() const
{
    std::vector<std::string> lines;
    for (const auto& [path, finding] : m_road.items())
        lines.push_back(finding.text(path));
    return lines;
}

Effect ConfigCheck::worst() const
{
    Effect worst = Effect::Surprise;
    for (const File& file : m_files)
        worst = std::max(worst, worstOf(file.findings));
    return worst;
}

void ConfigCheck::refuse(Effect atLeast) const
{
    const auto reasons = lines(atLeast);
    if (!reasons.empty())
        throw Failure(ExitStatus::BadInput,
                      "the configuration has " + devkit::counted(reasons.size(), "error") +
                          " to be mended first; `zarnekctl check` tells all",
                      reasons);
}

} // namespace zarnekctl
