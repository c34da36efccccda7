// Any bytes as the alert mapping file: the plug-in and the host read what the model below reads, and the
// host's check tells whether the support library can write a sequence number that the plug-in reads.
#include "common/TempFolder.h"
#include "common/Utf8.h"
#include "fuzz/demand.h"
#include "morlan/morlan_inspect.h"
#include "vendor/IniAccess.h"
#include "zarnekctl/config/MappingCheck.h"

#include <zarnek_ini.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <sys/stat.h>

using namespace zarnekctl;

namespace
{

// Nothing where a line of white space ends the reading.
using Number = std::optional<std::uint32_t>;
using Numbers = std::optional<std::map<unsigned int, unsigned int>>;

struct Pair {
    bool headless;
    std::string section, key, value;
};

// The grammar, as simply as it can be said.
struct Model {
    std::vector<Pair> pairs; // ahead of the line that ends the reading
    bool ends = false;

    explicit Model(const std::string& content)
    {
        bool headless = true;
        std::string section;
        std::istringstream lines(content);
        for (std::string line; !ends && std::getline(lines, line);) {
            std::string text;
            std::copy_if(line.begin(), line.end(), std::back_inserter(text),
                         [](char c) { return std::string(" \t\n\v\f\r").find(c) == std::string::npos; });
            const std::size_t open = text.find('['), close = text.find(']'), equals = text.find('=');
            ends = text.empty() && !line.empty();
            if (text.empty() || text[0] == ';')
                continue;
            if (open == std::string::npos || close == std::string::npos) {
                const std::string value = equals == std::string::npos ? text : text.substr(equals + 1);
                pairs.push_back({headless, section, text.substr(0, equals), value});
            } else {
                headless = false;
                section = close == 0 ? text.substr(open + 1) : text.substr(open + 1, close - 1);
            }
        }
    }
    static std::uint32_t numberOf(const std::string& text)
    {
        const long long number = std::strtoll(text.c_str(), nullptr, 10);
        return std::abs(number) > INI_NO_NUMBER ? INI_NO_NUMBER : static_cast<std::uint32_t>(number);
    }
    Number number(const std::string& section, const std::string& key) const
    {
        for (const Pair& pair : pairs)
            if (pair.key == key && (pair.headless || pair.section == section))
                return numberOf(pair.value);
        return ends ? std::nullopt : Number(INI_NO_NUMBER);
    }
    Numbers numbers(const std::string& section, bool from) const
    {
        Numbers all(std::in_place);
        for (const Pair& pair : pairs)
            if (pair.headless || (pair.section == section) == from)
                all->emplace(numberOf(pair.key), numberOf(pair.value));
        return ends ? std::nullopt : all;
    }
};

template <class Read>
auto unlessEnded(Read read) -> std::optional<decltype(read())>
{
    try {
        return read();
    } catch (const std::out_of_range& end) {
        demand(end.what() == std::string("basic_string::at"), "the end has its name");
        return std::nullopt;
    }
}

// With white space around the names, which does not count.
Number pluginsNumber(std::string section, std::string key, const char* file = INI_ALERT_MAPPING_FILE)
{
    section = " \t" + section + "\t ";
    key = "\v" + key.insert(key.size() / 2, " ") + "\r";
    return unlessEnded(
        [&] { return static_cast<std::uint32_t>(stg::readFromIniFileAgainstKey(file, section, key)); });
}

Numbers pluginsNumbers(const std::string& section, bool from)
{
    return unlessEnded([&] {
        std::map<unsigned int, unsigned int> all;
        stg::createAlertLookupTable(all, INI_ALERT_MAPPING_FILE, section, from);
        return all;
    });
}

Number hostsNumber(const MappingFile& file, const std::string& section, const std::string& key)
{
    if (const MappingFile::Line* const line = file.find(section, key))
        return MappingFile::numberOf(line->value);
    return file.fatalOnTheWayTo(section, key) != nullptr ? std::nullopt : Number(INI_NO_NUMBER);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TempFolder folder;
    static const int pipe = mkfifo(folder.path("pipe").c_str(), 0600);
    morlan_set_install_path(folder.path().c_str());
    morlan_set_debug_sink([](void*, const char*) {}, nullptr);
    const std::string content(reinterpret_cast<const char*>(data), size);
    // A new file each time: some file systems wait for the disk when one is cut and written again.
    std::filesystem::remove(folder.path(INI_ALERT_MAPPING_FILE));
    folder.write(INI_ALERT_MAPPING_FILE, content);
    const Model model(content);
    const MappingFile file(content);
    std::vector<Pair> names = {{true, INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY, ""},
                               {true, "Adapter", "7", ""}};
    std::copy_n(model.pairs.begin(), std::min<std::size_t>(model.pairs.size(), 5), std::back_inserter(names));
    for (const Pair& one : names) {
        for (const Pair& other : names) {
            const Number number = model.number(one.section, other.key);
            demand(pluginsNumber(one.section, other.key) == number, "the plug-in finds a number");
            demand(hostsNumber(file, one.section, other.key) == number, "the host finds a number");
        }
        for (const bool from : {true, false})
            demand(pluginsNumbers(one.section, from) == model.numbers(one.section, from), "it reads all");
    }
    demand(pipe == 0 && pluginsNumber("Adapter", "7", "/pipe") == INI_NO_NUMBER, "nobody writes into a pipe");

    const Findings findings = MappingCheck(content).run();
    bool told = false;
    for (const Finding& finding : findings) {
        demand(devkit::escaped(finding.text("")) == finding.text(""), "a finding is one line");
        told = told || finding.effect == Effect::Repetition;
    }
    const Number sequence = model.number(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY);
    const bool works = !model.ends && sequence != INI_NO_NUMBER;
    demand(works || worstOf(findings) >= Effect::NoMonitoring, "what keeps alerts back is an error");
    const std::uint32_t next = sequence == 7U ? 8 : 7;
    demand(stg::writeToIniFileAgainstKey(INI_ALERT_MAPPING_FILE, INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY,
                                         next) == 0,
           "a sequence number can be written into any file");
    const bool kept = pluginsNumber(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY) == next;
    demand(sequence.value_or(INI_NO_NUMBER) == INI_NO_NUMBER || kept != told,
           "the check tells what is not kept");
    return 0;
}
