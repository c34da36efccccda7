#include "zarnekctl/config/ConfigFolder.h"

#include "common/files.h"
#include "zarnekctl/config/Failure.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>
#include <system_error>

namespace fs = std::filesystem;

namespace zarnekctl
{

namespace
{

fs::path userFolder()
{
    const char* state = secure_getenv("XDG_STATE_HOME");
    if (state != nullptr && fs::path(state).is_absolute())
        return fs::path(state) / "zarnek";
    const char* home = secure_getenv("HOME");
    if (home == nullptr || *home == '\0')
        throw Failure(ExitStatus::BadInput, "neither XDG_STATE_HOME nor HOME says where to keep the "
                                            "configuration; name a folder with --config");
    return fs::path(home) / ".local" / "state" / "zarnek";
}

} // namespace

ConfigFolder::ConfigFolder(const std::optional<std::string>& named)
    : m_path((named ? fs::absolute(*named) : userFolder()).lexically_normal())
{
    if (!m_path.has_filename()) // a trailing slash
        m_path = m_path.parent_path();
}

void ConfigFolder::prepare(const Installation& installation) const
{
    // What is made here is for its owner alone to change, whatever mask was set.
    fs::path way;
    int reason = EEXIST; // or the first other one, which is the root of the matter
    for (const fs::path& step : m_path) {
        way /= step;
        if (mkdir(way.c_str(), 0755) != 0 && reason == EEXIST)
            reason = errno;
    }
    std::error_code error;
    if (!fs::is_directory(m_path, error))
        throw Failure(ExitStatus::BadInput, m_path.string() + ": cannot make the configuration folder: " +
                                                std::strerror(reason) + "; name another one with --config");
    for (const fs::path& file : {privateIni(), mapping()}) {
        if (fs::exists(file, error)) // then it need not be there as shipped
            continue;
        const fs::path shipped = installation.shippedConfig(file.filename().string());
        std::string content;
        if (devkit::readFile(shipped.string(), content) != devkit::FileRead::Done)
            throw Failure(ExitStatus::BadInput,
                          shipped.string() + ": the shipped file cannot be read; install it anew");
        // In one step and with a mode of its own: nobody gets half a file, or a write-protected one.
        if (!devkit::FilePlace(file.string()).replace(content))
            throw Failure(ExitStatus::BadInput,
                          file.string() + ": cannot copy the shipped file here: " + std::strerror(errno) +
                              "; name another folder with --config");
    }
}

} // namespace zarnekctl
