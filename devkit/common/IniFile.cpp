#include "common/IniFile.h"

#include "common/IniText.h"

#include <mutex>

namespace devkit
{

std::optional<std::string> iniValue(const std::string& path, std::string_view section, std::string_view key)
{
    std::string content;
    if (readFile(path, content) != FileRead::Done)
        return std::nullopt;
    return IniText(content).value(section, key);
}

bool writeIniValue(const FilePlace& place, std::string_view section, std::string_view key,
                   std::string_view value)
{
    // From reading to replacing, or one of two writers would undo the other's key.
    static std::mutex writing;
    const std::lock_guard<std::mutex> lock(writing);
    std::string content;
    const FileRead read = place.read(content);
    if (read != FileRead::Done && read != FileRead::Missing)
        return false;
    IniText text(content);
    return text.setValue(section, key, value) && place.replace(text.text());
}

} // namespace devkit
