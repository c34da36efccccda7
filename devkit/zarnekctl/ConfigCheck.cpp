#include "zarnekctl/ConfigCheck.h"

#include "zarnekctl/Failure.h"
#include "zarnekctl/MappingCheck.h"
#include "zarnekctl/PrivateIniCheck.h"
#include "zarnekctl/Text.h"

#include <algorithm>

namespace zarnekctl
{

namespace
{

Findings checkMappingFile(const std::filesystem::path& path)
{
    const auto file = MappingFile::read(path);
    if (!file)
        return {{1, Effect::NoMonitoring, "the file cannot be read",
                 "put it there; a first run without --config makes one"}};
    return MappingCheck(*file).run();
}

} // namespace

ConfigCheck::ConfigCheck(const ConfigFolder& config)
    : m_files{{config.privateIni().string(), checkPrivateIni(config.privateIni())},
              {config.mapping().string(), checkMappingFile(config.mapping())}}
{
}

std::vector<std::string> ConfigCheck::lines(Effect atLeast) const
{
    std::vector<std::string> lines;
    for (const File& file : m_files) {
        for (const Finding& finding : file.findings) {
            if (finding.effect >= atLeast)
                lines.push_back(finding.text(file.path));
        }
    }
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
                      "the configuration has " + counted(reasons.size(), "error") +
                          " to be mended first; `zarnekctl check` tells all",
                      reasons);
}

} // namespace zarnekctl
