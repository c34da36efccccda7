#include "mvsim/live/TwinBook.h"

#include <algorithm>

namespace mvsim
{

void TwinBook::tellApart(std::vector<SeenDisk>& disks)
{
    for (auto& [identity, twins] : m_twins)
        for (Twin& twin : twins)
            twin.present = false;
    // All who kept their names come first, so that nobody takes over from one who is still to come.
    std::vector<SeenDisk*> renamed;
    const auto claim = [this](SeenDisk& disk, auto isTheOne) {
        std::vector<Twin>& twins = m_twins[disk.identity];
        const auto found = std::find_if(twins.begin(), twins.end(), isTheOne);
        if (found == twins.end())
            return false;
        *found = {disk.name, true};
        disk.identity += " " + std::to_string(found - twins.begin());
        return true;
    };
    for (SeenDisk& disk : disks)
        if (!claim(disk, [&disk](const Twin& twin) { return twin.name == disk.name; }))
            renamed.push_back(&disk);
    for (SeenDisk* disk : renamed) {
        const auto isGone = [](const Twin& twin) { return !twin.present; };
        std::vector<Twin>& twins = m_twins[disk->identity];
        if (std::none_of(twins.begin(), twins.end(), isGone))
            twins.push_back({disk->name, false});
        claim(*disk, isGone);
    }
}

} // namespace mvsim
