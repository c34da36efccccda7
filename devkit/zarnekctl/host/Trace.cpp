#include "zarnekctl/host/Trace.h"

#include "common/Utf8.h"

namespace zarnekctl
{

Trace::Trace(std::ostream* out, std::string configFolder)
    : m_out(out), m_configFolder(std::move(configFolder))
{
}

void Trace::line(std::string_view kind, std::string_view text)
{
    if (m_out == nullptr)
        return;
    std::string shown(text);
    for (std::size_t at = shown.find(m_configFolder); at != std::string::npos;
         at = shown.find(m_configFolder, at))
        shown.replace(at, m_configFolder.size(), "CONFIG");
    // Only ASCII: a trace is compared byte for byte, whatever names disks have.
    const std::lock_guard<std::mutex> lock(m_mutex);
    *m_out << devkit::padded(kind, 3) << ' ' << devkit::escaped(shown, true) << '\n' << std::flush;
}

} // namespace zarnekctl
