// Any bytes as an INI file of the support library, with a section, a key and a value, each up to a zero byte,
// ahead of it: what was written is read, and what was not to change is unchanged.
#include "common/TempFolder.h"
#include "fuzz/demand.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <sstream>

namespace
{

using Name = std::pair<std::string, std::string>; // section and key
using Values = std::map<Name, std::string>;

std::string trimmed(const std::string& text)
{
    const std::size_t first = std::min(text.find_first_not_of(" \t\r"), text.size());
    return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

// The grammar, as simply as it can be said.
Values valuesOf(const std::string& content)
{
    Values values;
    std::string section;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        line = trimmed(line);
        const std::size_t close = line.find(']'), equals = line.find('=');
        if (line[0] == '[' && close != std::string::npos)
            section = trimmed(line.substr(1, close - 1));
        else if (line.find_first_of("[;#") != 0 && equals != std::string::npos)
            values.emplace(Name(section, trimmed(line.substr(0, equals))), trimmed(line.substr(equals + 1)));
    }
    return values;
}

void checkReader(const Values& values)
{
    for (const auto& [name, value] : values) {
        if ((name.first + name.second).find('\0') != std::string::npos)
            continue;
        std::string buffer(value.size() + 2, '?');
        auto size = static_cast<unsigned int>(buffer.size());
        const int status =
            SSGetPrivateIniValue(name.first.c_str(), name.second.c_str(), buffer.data(), &size);
        demand(status == 0 && size == value.size() + 1, "a value is found");
        demand(buffer == value + std::string("\0?", 2), "it is read whole");
    }
}

// The new text is the old one with something put in at one place, or with a value replaced.
void checkRest(const std::string& before, const std::string& after, bool replaced, std::size_t longest)
{
    const auto front = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    std::string gone(front.first, before.end()), come(front.second, after.end());
    while (!gone.empty() && !come.empty() && gone.back() == come.back()) {
        gone.pop_back();
        come.pop_back();
    }
    const std::string kept(before.begin(), front.first);
    const bool inValue = kept.rfind('=') + 1 > kept.rfind('\n') + 1 && gone.find('\n') == std::string::npos;
    demand(replaced ? inValue || before == after : gone.empty(), "the rest is as it was");
    demand(come.size() <= longest, "no more is written than has to be");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TempFolder folder;
    static const std::string file = folder.path("f.ini");
    morlan_set_private_ini(file.c_str());
    std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
    std::string section, key, value;
    for (std::string* text : {&section, &key, &value})
        std::getline(input, *text, '\0');
    const std::string before(std::istreambuf_iterator<char>(input), {});
    std::filesystem::remove(file);
    folder.write("f.ini", before);
    Values expected = valuesOf(before);

    const std::string words = section + key + value;
    const Values alone = valuesOf('[' + section + "]\n" + key + '=' + value);
    const bool writable = !key.empty() && words.find_first_of("\r\n") == std::string::npos &&
                          alone == Values{{{section, key}, trimmed(value)}};
    const int status = SMWriteINIPathFileValue(section.c_str(), key.c_str(), 1, value.c_str(),
                                               static_cast<unsigned int>(value.size() + 1), file.c_str(), 1);
    demand((status == 0) == writable, "what could be read back is written, and nothing else");
    const std::string after = folder.read("f.ini");
    demand(writable || after == before, "a refusal changes nothing");
    checkRest(before, after, expected.count({section, key}) != 0,
              words.size() + std::string("[]\r\n=\r\n").size());
    if (writable)
        expected[{section, key}] = trimmed(value);
    demand(valuesOf(after) == expected, "one value has changed");
    checkReader(expected);
    return 0;
}
