#include "zarnekctl/config/PrivateIniCheck.h"

#include "common/files.h"
#include "zarnekctl/config/Failure.h"
#include <sdo.h>
#include <zarnek_ini.h>

#include <cstdlib>
#include <iterator>
#include <map>
#include <utility>

namespace zarnekctl
{

namespace
{

using devkit::IniText;

const std::string VENDOR_ID =
    std::to_string(SDO_VIL_NUMBER); // the one that the plug-in has a library class for

using Place = std::pair<std::string, std::string>; // section and key

// Where each key stands first.
class Places
{
  public:
    Places(const IniText& text, Findings& findings)
    {
        std::string section;
        std::size_t number = 0;
        for (const IniText::Line& line : text.lines()) {
            ++number;
            const auto surprise = [&](const std::string& what, const std::string& remedy) {
                findings.push_back({number, Effect::Surprise, what, remedy});
            };
            if (line.kind == IniText::Kind::OpenHeader) {
                surprise("a section header without \"]\", which nothing reads", "close the bracket");
            } else if (line.kind == IniText::Kind::NoPair) {
                surprise("a line without \"=\", which nothing reads",
                         "write key=value, or begin a comment with \";\"");
            } else if (line.kind == IniText::Kind::Header) {
                section = line.name;
                m_sections.try_emplace(section, number);
            } else if (line.kind == IniText::Kind::Pair && section.empty()) {
                surprise("a key ahead of the first section, which nothing reads",
                         "move it below a section header");
            } else if (line.kind == IniText::Kind::Pair) {
                const auto [first, isNew] = m_keys.try_emplace({section, line.name}, number);
                if (!isNew)
                    surprise("the key \"" + line.name + "\" stands in this section already, in line " +
                                 std::to_string(first->second),
                             "delete one of the two");
            }
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

    const std::map<Place, std::size_t>& keys() const { return m_keys; }

  private:
    std::map<Place, std::size_t> m_keys;
    std::map<std::string, std::size_t> m_sections;
};

bool endsInSuffix(const std::string& name)
{
    const std::size_t length = std::size(INI_LIBRARY_SUFFIX) - 1;
    return name.size() > length && name.compare(name.size() - length, length, INI_LIBRARY_SUFFIX) == 0;
}

void tryLibrary(const std::string& name, const LibraryProbe& probe, std::size_t line, Findings& findings)
{
    try {
        const std::string shortcoming = probe(name);
        if (!shortcoming.empty())
            findings.push_back({line, Effect::NoMonitoring, shortcoming, "install a complete one"});
    } catch (const Failure& failure) {
        findings.push_back(
            {line, Effect::NoDiscovery, failure.what(), "correct its name, or put it beside the plug-in"});
    }
}

void checkLibrary(const VendorEntry& vendor, std::size_t line, const LibraryProbe& probe, Findings& findings)
{
    const std::string name = vendor.name.value_or("");
    const std::string limit = std::to_string(INI_VALUE_LIMIT);
    const std::string suffix = INI_LIBRARY_SUFFIX;
    const auto refuse = [&](const std::string& what, const std::string& remedy) {
        findings.push_back({line, Effect::NoDiscovery, what, remedy});
    };
    if (name.empty())
        refuse("the vendor library has no name", "write " + vendor.nameKey +
                                                     "= and the library's file name without " + suffix +
                                                     " below " + inBrackets(INI_VENDOR_LIBRARY_SECTION));
    else if (name.size() > INI_VALUE_LIMIT)
        refuse("the vendor library's name has " + std::to_string(name.size()) + " characters and is cut to " +
                   limit,
               "use a name of at most " + limit + " characters");
    else if (name.find('/') != std::string::npos && name.front() != '/')
        refuse("the vendor library's name has a slash, so that the plug-in looks for it from the folder in "
               "which it is started",
               "name the file alone, or its path from the root");
    else if (endsInSuffix(name))
        refuse("the vendor library's name ends in " + suffix + ", which is added once more",
               "leave the " + suffix + " away");
    else if (probe)
        tryLibrary(name, probe, line, findings);
}

} // namespace

VendorEntry::VendorEntry(const IniText& privateIni)
    : id(privateIni.value(INI_VENDOR_ID_SECTION, INI_VENDOR_ID_KEY)),
      nameKey(INI_VENDOR_LIBRARY_KEY_PREFIX + id.value_or(VENDOR_ID)),
      name(privateIni.value(INI_VENDOR_LIBRARY_SECTION, nameKey))
{
}

std::string vendorLibraryName(const std::filesystem::path& privateIni)
{
    std::string content;
    devkit::readFile(privateIni.string(), content);
    return VendorEntry(IniText(content)).name.value_or("");
}

Findings checkPrivateIni(const std::filesystem::path& file, const LibraryProbe& probe)
{
    Findings findings;
    std::string content;
    if (const auto read = devkit::readFile(file.string(), content); read != devkit::FileRead::Done) {
        findings.push_back({1, Effect::NoDiscovery, devkit::reasonOf(read), PUT_THE_FILE_THERE});
        return findings;
    }
    const IniText text(content);
    const Places places(text, findings);
    const VendorEntry vendor(text);
    if (!vendor.id || std::strtol(vendor.id->c_str(), nullptr, 10) != SDO_VIL_NUMBER)
        findings.push_back(
            {places.lineOf(INI_VENDOR_ID_SECTION, INI_VENDOR_ID_KEY), Effect::NoDiscovery,
             vendor.id ? "the vendor id \"" + *vendor.id + "\" is not the number of the one known vendor"
                       : "the vendor id is missing",
             std::string("write ") + INI_VENDOR_ID_KEY + "=" + VENDOR_ID + " below " +
                 inBrackets(INI_VENDOR_ID_SECTION)});
    checkLibrary(vendor, places.lineOf(INI_VENDOR_LIBRARY_SECTION, vendor.nameKey), probe, findings);

    for (const auto& [place, line] : places.keys()) {
        const bool isRead = place == Place(INI_VENDOR_ID_SECTION, INI_VENDOR_ID_KEY) ||
                            place == Place(INI_VENDOR_LIBRARY_SECTION, vendor.nameKey);
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
