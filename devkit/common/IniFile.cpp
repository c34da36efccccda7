#include "common/IniFile.h"

#include "common/IniText.h"
#include "common/files.h"

#include <mutex>

namespace devkit
{

std::optional<std::string> IniFile::value(std::string_view section, std::string_view key) const
{
    std::string content;
    if (readFile(m_path, content) != FileRead::Done)
        return std::nullopt;
    return IniText(content).value(section, key);
}

bool IniFile::write(std::string_view section, std::string_view key, std::string_view value) const
{
    // From reading to replacing, or one of two writers would undo the other's key.
    static std::mutex writing;
    const std::lock_guard<std::mutex> lock(writing);
    std::string content;
    const FileRead read = readFile(m_path, content);
    if (read != FileRead::Done && read != FileRead::Missing)
        return false;
    IniText text(content);
    return text.setValue(section, key, value) && replaceFile(m_path, text.text());
}

} // namespace devkit
