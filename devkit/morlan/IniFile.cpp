#include "morlan/IniFile.h"

#include "common/files.h"
#include "morlan/IniText.h"

#include <mutex>

std::optional<std::string> IniFile::value(std::string_view section, std::string_view key) const
{
    std::string content;
    if (devkit::readFile(m_path, content) != devkit::FileRead::Done)
        return std::nullopt;
    return IniText(content).value(section, key);
}

bool IniFile::write(std::string_view section, std::string_view key, std::string_view value) const
{
    // From reading to replacing, or one of two writers would undo the other's key.
    static std::mutex writing;
    const std::lock_guard<std::mutex> lock(writing);
    std::string content;
    if (devkit::readFile(m_path, content) == devkit::FileRead::Failed)
        return false;
    IniText text(content);
    return text.setValue(section, key, value) && devkit::replaceFile(m_path, text.text());
}
