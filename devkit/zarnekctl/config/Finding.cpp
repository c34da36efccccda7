#include "zarnekctl/config/Finding.h"

#include "common/Utf8.h"

#include <algorithm>

namespace zarnekctl
{

std::string Finding::text(const std::string& file) const
{
    const char* severity = effect < Effect::NoMonitoring ? "warning" : "error";
    return file + (line == 0 ? "" : ":" + std::to_string(line)) + ": " + severity + ": " +
           devkit::escaped(what) + "; " + devkit::escaped(remedy);
}

std::string inBrackets(const std::string& section)
{
    return "[" + section + "]";
}

void sortByLine(Findings& findings)
{
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& left, const Finding& right) { return left.line < right.line; });
}

Effect worstOf(const Findings& findings)
{
    Effect worst = Effect::Surprise;
    for (const Finding& finding : findings)
        worst = std::max(worst, finding.effect);
    return worst;
}

} // namespace zarnekctl
