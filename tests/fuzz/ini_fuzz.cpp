// Any bytes as the alert mapping file: the plug-in reads them, writes a key with the support library's help,
// and reads on.
#include "common/TempFolder.h"
#include "fuzz/demand.h"
#include "morlan/morlan_inspect.h"
#include "vendor/IniAccess.h"

#include <zarnek_ini.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <sstream>
#include <stdexcept>

namespace
{

// The mapping file in a folder of its own, which is the private INI as well, so that the support library
// reads what it wrote.
class Installation
{
  public:
    Installation()
    {
        morlan_set_install_path(m_folder.path().c_str());
        morlan_set_private_ini(m_folder.path(MAPPING).c_str());
        morlan_set_debug_sink([](void*, const char*) {}, nullptr);
    }
    void write(const std::string& content) const { m_folder.write(MAPPING, content); }
    std::string content() const { return m_folder.read(MAPPING); }

  private:
    static constexpr const char* MAPPING = INI_ALERT_MAPPING_FILE + 1;
    TempFolder m_folder;
};

// Whether a line of nothing but white space makes the file unreadable.
bool hasBlankLine(const std::string& content)
{
    const auto isBlank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && std::all_of(line.begin(), line.end(), isBlank))
            return true;
    }
    return false;
}

// Whether a reader gave up; any other exception ends the run.
template <class Reader>
bool givesUp(Reader reader)
{
    try {
        reader();
        return false;
    } catch (const std::out_of_range&) {
        return true;
    }
}

void readAll(const std::string& content, const std::string& section, const std::string& key)
{
    const bool blankLine = hasBlankLine(content);
    for (const bool fromSection : {true, false}) {
        std::map<unsigned int, unsigned int> map;
        demand(givesUp([&] {
                   stg::createAlertLookupTable(map, INI_ALERT_MAPPING_FILE, section, fromSection);
               }) == blankLine,
               "a table gives up at a blank line, and only there");
    }
    const bool gaveUp =
        givesUp([&] { stg::readFromIniFileAgainstKey(INI_ALERT_MAPPING_FILE, section, key); });
    demand(!gaveUp || blankLine, "a search gives up at blank lines only");
}

void writeAndReadBack(const std::string& section, const std::string& key, unsigned int number)
{
    if (stg::writeToIniFileAgainstKey(INI_ALERT_MAPPING_FILE, section, key, number) == 0)
        demand(stg::readFromIniFile(section, key) == std::to_string(number), "a written key is read back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Installation installation;
    const std::string content(reinterpret_cast<const char*>(data), size);
    installation.write(content);

    // Names as the file has them, so that writing meets odd ones and ones that are there.
    std::istringstream lines(content);
    std::string section, key;
    std::getline(lines, section);
    std::getline(lines, key, '=');
    readAll(content, section, key);
    writeAndReadBack(section, key, static_cast<unsigned int>(size));

    demand(stg::writeToIniFileAgainstKey(INI_ALERT_MAPPING_FILE, INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY,
                                         4294967294U) == 0,
           "the sequence number can be written into any file");
    demand(stg::readFromIniFile(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY) == "4294967294",
           "the sequence number is read back");
    readAll(installation.content(), INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY);
    return 0;
}
