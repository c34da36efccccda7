#include "morlan/InstallFolder.h"

namespace morlan
{

void InstallFolder::set(const char* path)
{
    std::string name = path == nullptr ? "" : std::string(path) + '/';
    devkit::Descriptor folder = path == nullptr ? devkit::Descriptor() : devkit::openFolder(path);
    m_path.set(path);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_heldName.swap(name);
    m_held = std::move(folder);
}

void InstallFolder::reset()
{
    m_path.reset();
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_held = devkit::Descriptor();
}

devkit::FilePlace InstallFolder::placeOf(const std::string& file) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const bool isBelow = m_held.isOpen() && file.compare(0, m_heldName.size(), m_heldName) == 0;
    const std::size_t rest = isBelow ? file.find_first_not_of('/', m_heldName.size()) : std::string::npos;
    return rest == std::string::npos ? devkit::FilePlace(file)
                                     : devkit::FilePlace(file.substr(rest), m_held.number());
}

} // namespace morlan
