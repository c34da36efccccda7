#include "mvsim/live/SysfsFolder.h"

#include "common/files.h"
#include "common/words.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace mvsim
{

SysfsFolder::SysfsFolder(std::filesystem::path path) : m_path(std::move(path)) {}

bool SysfsFolder::exists() const
{
    std::error_code error;
    return std::filesystem::is_directory(m_path, error);
}

std::vector<std::string> SysfsFolder::entries() const
{
    std::vector<std::string> names;
    std::error_code error;
    // Entries may go while they are listed, so that stepping on can fail as well.
    for (std::filesystem::directory_iterator entry(m_path, error), end; !error && entry != end;
         entry.increment(error))
        names.push_back(entry->path().filename().string());
    std::sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
        return std::make_pair(left.size(), left) < std::make_pair(right.size(), right);
    });
    return names;
}

std::optional<std::string> SysfsFolder::bytes(const std::filesystem::path& file) const
{
    std::string content;
    if (devkit::readFile((m_path / file).string(), content) != devkit::FileRead::Done)
        return std::nullopt;
    return content;
}

std::optional<std::string> SysfsFolder::text(const std::filesystem::path& file) const
{
    const std::string content = bytes(file).value_or("");
    const std::string_view text = devkit::trimmed(content);
    return text.empty() ? std::nullopt : std::optional<std::string>(text);
}

std::optional<std::uint64_t> SysfsFolder::number(const std::filesystem::path& file) const
{
    const std::string digits = text(file).value_or("");
    std::uint64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return result.ec == std::errc() ? std::optional<std::uint64_t>(value) : std::nullopt;
}

std::optional<std::uint64_t> SysfsFolder::kilobytes(const std::filesystem::path& file) const
{
    constexpr std::uint64_t SECTORS_PER_KB = 2;
    const auto sectors = number(file);
    return sectors ? std::optional<std::uint64_t>(*sectors / SECTORS_PER_KB) : std::nullopt;
}

std::filesystem::path SysfsFolder::resolved() const
{
    std::error_code error;
    return std::filesystem::canonical(m_path, error);
}

} // namespace mvsim
