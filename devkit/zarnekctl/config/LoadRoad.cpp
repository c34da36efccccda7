#include "zarnekctl/config/LoadRoad.h"

#include <algorithm>
#include <cstring>
#include <grp.h>
#include <list>
#include <pwd.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace zarnekctl
{

namespace
{

constexpr int MOST_LINKS = 40;

std::string userName(uid_t user)
{
    const passwd* entry = getpwuid(user);
    return entry == nullptr ? "user " + std::to_string(user) : entry->pw_name;
}

// A group that stands for one user: it bears the name of the owner, and nobody else is in it.
bool isPrivate(gid_t number, uid_t owner)
{
    const group* const entry = getgrgid(number);
    if (entry == nullptr || entry->gr_name != userName(owner))
        return false;
    const std::string name = entry->gr_name;
    for (char** member = entry->gr_mem; *member != nullptr; ++member)
        if (*member != name)
            return false;
    bool isAlone = true;
    setpwent();
    while (const passwd* user = getpwent())
        isAlone = isAlone && (user->pw_gid != number || user->pw_uid == owner);
    endpwent();
    return isAlone;
}

// Who but owner and root can write it, and what takes that right away; both empty for nobody.
std::pair<std::string, std::string> otherWriters(const fs::path& place, const struct stat& status)
{
    const bool isSticky = S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0;
    if (S_ISLNK(status.st_mode) || isSticky)
        return {};
    if ((status.st_mode & S_IWOTH) != 0)
        return {"everybody", "chmod go-w"};
    if ((status.st_mode & S_IWGRP) == 0)
        return {};
    // With an access list the group's bits are the most that anyone in it can get.
    if (getxattr(place.c_str(), "system.posix_acl_access", nullptr, 0) > 0)
        return {"whoever its access list names", "chmod g-w"};
    if (isPrivate(status.st_gid, status.st_uid))
        return {};
    const group* const entry = getgrgid(status.st_gid);
    return {"the group " + (entry == nullptr ? std::to_string(status.st_gid) : std::string(entry->gr_name)),
            "chmod g-w"};
}

} // namespace

void LoadRoad::add(const fs::path& file)
{
    const fs::path way = fs::absolute(file);
    std::list<fs::path> ahead(way.begin(), way.end());
    fs::path place;
    int links = 0;
    for (; !ahead.empty(); ahead.pop_front()) {
        const fs::path step = ahead.front();
        if (step.empty() || step == ".")
            continue;
        if (step == "..") {
            place = place.parent_path();
            continue;
        }
        const fs::path next = place / step; // the root, where a link leads there
        struct stat status = {};
        if (lstat(next.c_str(), &status) != 0)
            return;
        look(next, status);
        if (!S_ISLNK(status.st_mode)) {
            place = next;
            continue;
        }
        std::error_code error;
        const fs::path target = fs::read_symlink(next, error);
        if (error || ++links > MOST_LINKS)
            return;
        ahead.insert(std::next(ahead.begin()), target.begin(), target.end());
    }
}

void LoadRoad::look(const fs::path& place, const struct stat& status)
{
    if (std::find(m_seen.begin(), m_seen.end(), place) != m_seen.end())
        return;
    m_seen.push_back(place);
    const bool isRoot = geteuid() == 0;
    const char* const kind = S_ISDIR(status.st_mode) ? "folder" : S_ISLNK(status.st_mode) ? "link" : "file";
    if (const auto [writers, cure] = otherWriters(place, status); !writers.empty())
        m_items.emplace_back(place.string(), Finding{0, isRoot ? Effect::NoMonitoring : Effect::Exposure,
                                                     writers + " can write this " + kind +
                                                         ", and so has a say in what runs here",
                                                     "take the right away with " + cure});
    else if (isRoot && status.st_uid != 0)
        m_items.emplace_back(place.string(),
                             Finding{0, Effect::Exposure,
                                     "this " + std::string(kind) + " belongs to " + userName(status.st_uid) +
                                         ", who so has a say in what root runs here",
                                     "give it to root with chown, unless that is wanted"});
}

Effect LoadRoad::worst() const
{
    Effect worst = Effect::Surprise;
    for (const Item& item : m_items)
        worst = std::max(worst, item.second.effect);
    return worst;
}

} // namespace zarnekctl
