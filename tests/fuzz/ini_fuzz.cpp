// Any bytes as the alert mapping file: the plug-in reads them, writes a key with the support library's help,
// and reads on.
#include "common/StandIns.h"
#include "fuzz/demand.h"
#include "morlan/morlan_inspect.h"
#include "vendor/IniAccess.h"

#include <zarnek_ini.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <sstream>
#include <stdexcept>

namespace
{

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

// Reads the file in every way and writes one key; whether it could be written.
bool readAndWrite(const StandIns& standIns, const std::string& section, const std::string& key,
                  unsigned int number)
{
    const bool blankLine = hasBlankLine(standIns.readMapping());
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

    if (stg::writeToIniFileAgainstKey(INI_ALERT_MAPPING_FILE, section, key, number) != 0)
        return false;
    standIns.writePrivateIni(standIns.readMapping()); // which the support library reads
    demand(stg::readFromIniFile(section, key) == std::to_string(number), "a written key is read back");
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const StandIns standIns;
    morlan_set_debug_sink([](void*, const char*) {}, nullptr);
    const std::string content(reinterpret_cast<const char*>(data), size);
    standIns.writeMapping(content);

    // Names as the file has them, so that writing meets odd ones and ones that are there.
    std::istringstream lines(content);
    std::string section, key;
    std::getline(lines, section);
    std::getline(lines, key, '=');
    readAndWrite(standIns, section, key, static_cast<unsigned int>(size));
    demand(readAndWrite(standIns, INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY, 4294967294U),
           "the sequence number can be written into any file");
    return 0;
}
