#include "zarnekctl/config/LibrarySearch.h"

#include "common/files.h"
#include <zarnek_ini.h>

#include <cstddef>
#include <dlfcn.h>
#include <system_error>

namespace fs = std::filesystem;

namespace zarnekctl
{

namespace
{

constexpr const char* LOADER_CACHE = "/etc/ld.so.cache";

// What this program's run path, the environment and the loader itself name, in the loader's order.
std::vector<fs::path> searchedFolders()
{
    std::vector<fs::path> folders;
    void* const program = dlopen(nullptr, RTLD_LAZY);
    Dl_serinfo size = {};
    if (program == nullptr || dlinfo(program, RTLD_DI_SERINFOSIZE, &size) != 0)
        return folders;
    std::vector<std::max_align_t> room(size.dls_size / sizeof(std::max_align_t) + 1);
    auto* const info = new (room.data()) Dl_serinfo(size);
    if (dlinfo(program, RTLD_DI_SERINFO, info) == 0)
        for (unsigned int index = 0; index < info->dls_cnt; ++index)
            folders.emplace_back(info->dls_serpath[index].dls_name);
    dlclose(program);
    return folders;
}

// All that counts of the cache's form: texts end in zeros, and those that begin with a slash are files.
std::vector<fs::path> cachedFiles(const std::string& file)
{
    constexpr std::size_t MOST_MIB = 16;
    std::vector<fs::path> found;
    std::string cache;
    devkit::readFile(LOADER_CACHE, cache, MOST_MIB * devkit::MIB);
    const std::string end = '/' + file + '\0';
    for (std::size_t at = cache.find(end); at != std::string::npos; at = cache.find(end, at + 1)) {
        const std::size_t begin = cache.rfind('\0', at) + 1;
        if (cache[begin] == '/')
            found.emplace_back(cache.substr(begin, at - begin + end.size() - 1));
    }
    return found;
}

} // namespace

fs::path libraryBeside(const std::string& name, const fs::path& folder)
{
    return folder / (name + INI_LIBRARY_SUFFIX);
}

std::vector<fs::path> libraryPlaces(const std::string& name, const fs::path& folder)
{
    std::error_code error;
    std::vector<fs::path> places{libraryBeside(name, folder)};
    for (const fs::path& searched : searchedFolders()) {
        if (fs::exists(places.back(), error))
            return places;
        places.push_back(libraryBeside(name, searched));
    }
    if (!fs::exists(places.back(), error))
        for (const fs::path& cached : cachedFiles(name + INI_LIBRARY_SUFFIX))
            places.push_back(cached);
    return places;
}

} // namespace zarnekctl
