#include "zarnekctl/report/OutputFile.h"

#include "common/Utf8.h"
#include "common/files.h"
#include "zarnekctl/config/Failure.h"

#include <cerrno>
#include <cstring>

namespace zarnekctl
{

void OutputFile::write(const std::string& content) const
{
    if (!devkit::writeOutput(m_path, content, m_newMode))
        throw Failure(ExitStatus::PluginFailed,
                      devkit::escaped(m_path) + ": cannot be written: " + std::strerror(errno) +
                          "; name a file in a folder that this user can write to, on a disk with room");
}

} // namespace zarnekctl
