#include "vendor/IniAccess.h"

#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/TextTools.h"

#include <morlan.h>
#include <zarnek_ini.h>

#include <array>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace stg
{
namespace
{

// Whether a section header is to be passed over, by whether its name is the wanted one.
enum class Sections { OnlyNamed, AllButNamed };

// Gets the key and the value of a data line; true ends the scan.
using DataLine = std::function<bool(const std::string& key, const std::string& value)>;

// The name in a section header. It starts behind the first "[" and is as long as the position of the first
// "]" less one, which for a line that begins with "[" is just the text between the brackets.
std::string sectionName(const std::string& line)
{
    return line.substr(line.find('[') + 1, line.find(']') - 1);
}

bool isSectionHeader(const std::string& line)
{
    return line.find('[') != std::string::npos && line.find(']') != std::string::npos;
}

void scanLines(std::istream& file, const std::string& wantedSection, Sections sections,
               const DataLine& onData)
{
    bool skipping = false;
    std::string line;
    while (file.good()) {
        std::getline(file, line);
        if (line.empty())
            line = ";";
        removeBeginingAndTrailingSpaces(line);
        removeAllSpaces(line);
        if (line.empty()) // it was white space
            throw std::out_of_range("basic_string::at");
        if (line.front() == ';')
            continue;
        if (isSectionHeader(line)) {
            skipping = (sectionName(line) == wantedSection) == (sections == Sections::AllButNamed);
            continue;
        }
        if (skipping)
            continue;
        // Without "=" the position wraps around, and the whole line is both key and value.
        const std::size_t equals = line.find('=');
        if (onData(line.substr(0, equals), line.substr(equals + 1)))
            return;
    }
}

// To open a pipe would be to wait for its writer; it is what cannot be positioned.
bool waitsForWriter(const std::string& path)
{
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool waits = lseek(file, 0, SEEK_CUR) < 0;
    close(file);
    return waits;
}

// Opens the file below the install path and scans it. False without an install path or file.
bool scanIniFile(const LogScope& scope, const char* noPathMessage, const std::string& filePath,
                 std::string section, Sections sections, const DataLine& onData)
{
    const std::string installPath = getVRAXInstallPath();
    if (installPath.empty()) {
        if (noPathMessage != nullptr)
            scope.message() << noPathMessage << '\n';
        return false;
    }
    const std::string path = installPath + filePath;
    std::ifstream file;
    if (!waitsForWriter(path))
        file.open(path);
    if (!file.is_open()) {
        scope.message() << "Cannot open ini file. File Name: " << filePath << '\n';
        return false;
    }
    removeBeginingAndTrailingSpaces(section);
    scanLines(file, section, sections, onData);
    return true;
}

int readAllKeyValues(const LogScope& scope, std::map<unsigned int, unsigned int>& map,
                     const std::string& filePath, const std::string& section, Sections sections)
{
    const auto insert = [&map](const std::string& key, const std::string& value) {
        map.emplace(toUnsigned32(key), toUnsigned32(value));
        return false;
    };
    return scanIniFile(scope, nullptr, filePath, section, sections, insert) ? 0 : INI_NOT_FOUND;
}

} // namespace

std::string getVRAXInstallPath()
{
    const LogScope scope("ZARNEK: stg::getVRAXInstallPath()");

    std::string path;
    void* const text = sm_create();
    if (GetIniFilePath(text) != 0)
        scope.message() << "Not able to get Install Path." << '\n';
    if (text != nullptr) {
        if (sm_strlen(text) != 0) {
            // Also when there is no memory for the copy.
            const std::unique_ptr<void, void (*)(void*)> freed(text, sm_destroy);
            path = static_cast<const char*>(text);
        } else {
            sm_destroy(text);
            scope.message() << "str is empty." << '\n';
            sm_destroy(text); // an empty object is destroyed twice; the support library takes that
        }
    }
    scope.message() << "VRAX Install Path: " << path << '\n';
    return path;
}

std::string readFromIniFile(std::string section, std::string key)
{
    std::array<char, INI_VALUE_LIMIT + 1> buffer{};
    unsigned int size = buffer.size();
    SSGetPrivateIniValue(section.c_str(), key.c_str(), buffer.data(), &size);
    return textFromField(buffer.data(), buffer.size());
}

void readFromIniFile(std::vector<SVendorInfo_t>& vendorInfo)
{
    SVendorInfo_t vendor;
    vendor.m_VendorID = readFromIniFile(INI_VENDOR_ID_SECTION, INI_VENDOR_ID_KEY);
    vendor.m_LibName =
        readFromIniFile(INI_VENDOR_LIBRARY_SECTION, INI_VENDOR_LIBRARY_KEY_PREFIX + vendor.m_VendorID);
    lout << "ZARNEK: stg::readFromIniFile "
         << "tempVendorInfo->m_LibName" << vendor.m_LibName << '\n';
    vendorInfo.push_back(vendor);
}

int readFromIniFileAgainstKey(std::string filePath, std::string section, std::string keyword)
{
    const LogScope scope("ZARNEK:stg::readFromIniFileAgainstKey()");

    int result = INI_NOT_FOUND;
    removeAllSpaces(keyword);
    const auto find = [&](const std::string& key, const std::string& value) {
        if (key != keyword)
            return false;
        result = static_cast<int>(toUnsigned32(value));
        return true;
    };
    scanIniFile(scope, "Not able to generate entire file path.", filePath, section, Sections::OnlyNamed,
                find);
    return result;
}

int readFromIniFileAgainstKey(std::string filePath, std::string section, unsigned int keyword)
{
    const LogScope scope(
        "ZARNEK:stg::readFromIniFileAgainstKey( STDSTR filePath, STDSTR section, ULONG_INT keyword )");
    return readFromIniFileAgainstKey(filePath, section, std::to_string(keyword));
}

int writeToIniFileAgainstKey(std::string filePath, std::string section, std::string keyword,
                             unsigned int value)
{
    const LogScope scope("ZARNEK:stg::writeToIniFileAgainstKey()");

    std::string absolutePath = getVRAXInstallPath();
    if (absolutePath.empty())
        return INI_NOT_FOUND;
    absolutePath += filePath;
    scope.message() << "Absolute Path of " << filePath << " is " << absolutePath << '\n';
    const std::string text = std::to_string(value);
    scope.message() << "Need to modify the " << keyword << " by " << text << '\n';
    const int status =
        SMWriteINIPathFileValue(section.c_str(), keyword.c_str(), 1, text.c_str(),
                                static_cast<unsigned int>(text.size() + 1), absolutePath.c_str(), 1);
    if (status != 0)
        scope.message() << "Failed to write in " << filePath << " File under the section " << section
                        << ". Keyword is " << keyword << " and the value is " << text << '\n';
    return status;
}

int readAllKeyValueFromIniFromSection(std::map<unsigned int, unsigned int>& map, std::string filePath,
                                      std::string section)
{
    const LogScope scope("ZARNEK:stg::readAllKeyValueFromIniFromSection()");
    return readAllKeyValues(scope, map, filePath, section, Sections::OnlyNamed);
}

int readAllKeyValueFromIniExceptSection(std::map<unsigned int, unsigned int>& map, std::string filePath,
                                        std::string section)
{
    const LogScope scope("ZARNEK:stg::readAllKeyValueFromIniExceptSection()");
    return readAllKeyValues(scope, map, filePath, section, Sections::AllButNamed);
}

int createAlertLookupTable(std::map<unsigned int, unsigned int>& map, std::string filePath,
                           std::string section, bool fromSection)
{
    const LogScope scope("ZARNEK:stg::createAlertLookupTable()");
    return fromSection ? readAllKeyValueFromIniFromSection(map, filePath, section)
                       : readAllKeyValueFromIniExceptSection(map, filePath, section);
}

} // namespace stg
