#include "zarnekctl/config/PrivateIniCheck.h"

#include "common/files.h"
#include "morlan/morlan_inspect.h"
#include "zarnekctl/config/Failure.h"
#include "zarnekctl/host/VendorLibrary.h"
#include <morlan.h>

#include <array>
#include <cstdlib>
#include <map>
#include <sstream>

namespace zarnekctl
{

namespace
{

constexpr std::size_t longestValue = 31; // the plug-in reads into 32 bytes
constexpr long vendorId = 9;             // the one id that the plug-in has a library class for

std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \t\r");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// Where a key stands first; the values themselves are the support library's to read.
class Places
{
  public:
    Places(const std::string& content, Findings& findings)
    {
        std::istringstream stream(content);
        std::string section;
        std::string raw;
        for (std::size_t number = 1; std::getline(stream, raw); ++number) {
            const std::string line = trimmed(raw);
            if (line.empty() || line.front() == ';' || line.front() == '#')
                continue;
            if (line.front() == '[') {
                if (line.find(']') == std::string::npos) {
                    findings.push_back({number, Effect::Surprise,
                                        "a section header without \"]\", which nothing reads",
                                        "close the bracket"});
                    continue;
                }
                section = trimmed(line.substr(1, line.find(']') - 1));
                m_sections.try_emplace(section, number);
                continue;
            }
            const std::size_t equals = line.find('=');
            if (equals == std::string::npos)
                findings.push_back({number, Effect::Surprise, "a line without \"=\", which nothing reads",
                                    "write key=value, or begin a comment with \";\""});
            else if (section.empty())
                findings.push_back({number, Effect::Surprise,
                                    "a key ahead of the first section, which nothing reads",
                                    "move it below a section header"});
            else
                note(section, trimmed(line.substr(0, equals)), number, findings);
        }
    }

    // The key's line, otherwise the section's, otherwise the first.
    std::size_t lineOf(const std::string& section, const std::string& key) const
    {
        const auto found = m_keys.find({section, key});
        if (found != m_keys.end())
            return found->second;
        const auto header = m_sections.find(section);
        return header == m_sections.end() ? 1 : header->second;
    }

    const std::map<std::pair<std::string, std::string>, std::size_t>& keys() const { return m_keys; }

  private:
    void note(const std::string& section, const std::string& key, std::size_t number, Findings& findings)
    {
        const auto [first, isNew] = m_keys.try_emplace({section, key}, number);
        if (!isNew)
            findings.push_back({number, Effect::Surprise,
                                "the key \"" + key + "\" stands in this section already, in line " +
                                    std::to_string(first->second),
                                "delete one of the two"});
    }

    std::map<std::pair<std::string, std::string>, std::size_t> m_keys;
    std::map<std::string, std::size_t> m_sections;
};

void tryLibrary(const std::string& name, const std::filesystem::path& folder, std::size_t line,
                Findings& findings)
{
    try {
        const std::string shortcoming = VendorLibrary(name, folder).shortcoming();
        if (!shortcoming.empty())
            findings.push_back({line, Effect::NoMonitoring, shortcoming, "install a complete one"});
    } catch (const Failure& failure) {
        findings.push_back(
            {line, Effect::NoDiscovery, failure.what(), "correct its name, or put it beside the plug-in"});
    }
}

void checkLibrary(const Places& places, const std::string& key, const std::filesystem::path& folder,
                  Findings& findings)
{
    const auto name = privateIniValue(vendorLibrarySection, key);
    const std::size_t line = places.lineOf(vendorLibrarySection, key);
    const auto refuse = [&](const std::string& what, const std::string& remedy) {
        findings.push_back({line, Effect::NoDiscovery, what, remedy});
    };
    if (!name || name->empty())
        refuse("the vendor library has no name",
               "write " + key + "= and the library's file name without .so below [VendorLibName]");
    else if (name->size() > longestValue)
        refuse("the vendor library's name has " + std::to_string(name->size()) +
                   " characters and is cut to 31",
               "use a name of at most 31 characters");
    else if (name->size() > 3 && name->compare(name->size() - 3, 3, ".so") == 0)
        refuse("the vendor library's name ends in .so, which is added once more", "leave the .so away");
    else if (!folder.empty())
        tryLibrary(*name, folder, line, findings);
}

} // namespace

std::optional<std::string> privateIniValue(const std::string& section, const std::string& key)
{
    std::array<char, 4096> buffer{};
    auto size = static_cast<unsigned int>(buffer.size());
    if (SSGetPrivateIniValue(section.c_str(), key.c_str(), buffer.data(), &size) != 0)
        return std::nullopt;
    return std::string(buffer.data());
}

Findings checkPrivateIni(const std::filesystem::path& file, const std::filesystem::path& libraryFolder)
{
    Findings findings;
    std::string content;
    if (devkit::readFile(file.string(), content) != devkit::FileRead::Done) {
        findings.push_back({1, Effect::NoDiscovery, "the file cannot be read", putTheFileThere});
        return findings;
    }
    morlan_set_private_ini(file.c_str());
    const Places places(content, findings);

    const auto id = privateIniValue(vendorIdSection, vendorIdKey);
    const std::string libraryKey = "Linux_" + id.value_or(std::to_string(vendorId));
    if (!id || std::strtol(id->c_str(), nullptr, 10) != vendorId)
        findings.push_back({places.lineOf(vendorIdSection, vendorIdKey), Effect::NoDiscovery,
                            id ? "the vendor id \"" + *id + "\" is not the number of the one known vendor"
                               : "the vendor id is missing",
                            "write Marvell=9 below [VendorID]"});
    checkLibrary(places, libraryKey, libraryFolder, findings);

    for (const auto& [place, line] : places.keys()) {
        const bool isRead = place.first == vendorIdSection        ? place.second == vendorIdKey
                            : place.first == vendorLibrarySection ? place.second == libraryKey
                                                                  : false;
        if (!isRead)
            findings.push_back(
                {line, Effect::Surprise,
                 "nothing reads the key \"" + place.second + "\" in section \"" + place.first + "\"",
                 "delete the line"});
    }
    sortByLine(findings);
    return findings;
}

} // namespace zarnekctl
