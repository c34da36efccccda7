// The alert mapping file as the plug-in and the host read it, and as the support library writes it.
#include "common/TempFolder.h"
#include "morlan/morlan_inspect.h"
#include "vendor/IniAccess.h"
#include "zarnekctl/Golden.h"
#include "zarnekctl/config/MappingCheck.h"
#include <zarnek_ini.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>

using namespace zarnekctl;

namespace
{

using Pairs = std::map<unsigned int, unsigned int>;

// What a reader gives for every key and section that the texts may hold. Both readers throw std::out_of_range
// where a line of white space ends the reading.
template <typename Number, typename AllPairs>
std::string answers(Number number, AllPairs allPairs)
{
    std::string text;
    const auto add = [&text](auto read) {
        try {
            text += testing::PrintToString(read()) + ' ';
        } catch (const std::out_of_range&) {
            text += "ended ";
        }
    };
    for (const char* section : {INI_SEQUENCE_SECTION, INI_ADAPTER_SECTION, "7", "]"}) {
        for (const char* key : {INI_SEQUENCE_KEY, "7", "12", "[7", ""})
            add([&] { return number(section, key); });
        add([&] { return allPairs(section); });
    }
    return text;
}

unsigned int pluginsNumber(const char* section, const char* key)
{
    return static_cast<unsigned int>(stg::readFromIniFileAgainstKey(INI_ALERT_MAPPING_FILE, section, key));
}

std::string pluginsAnswers()
{
    return answers(pluginsNumber, [](const char* section) {
        Pairs pairs;
        stg::readAllKeyValueFromIniFromSection(pairs, INI_ALERT_MAPPING_FILE, section);
        return pairs;
    });
}

std::string hostsAnswers(const MappingFile& file)
{
    const auto number = [&file](const char* section, const char* key) {
        if (file.fatalOnTheWayTo(section, key) != nullptr)
            throw std::out_of_range("a line of white space");
        const auto* line = file.find(section, key);
        return line == nullptr ? INI_NO_NUMBER : MappingFile::numberOf(line->value);
    };
    return answers(number, [&file](const char* section) {
        Pairs pairs;
        for (const auto& line : file.lines()) {
            if (line.kind == MappingFile::LineKind::Fatal)
                throw std::out_of_range("a line of white space");
            if (line.kind == MappingFile::LineKind::Pair && (line.headless || line.section == section))
                pairs.emplace(MappingFile::numberOf(line.key), MappingFile::numberOf(line.value));
        }
        return pairs;
    });
}

} // namespace

TEST(Mapping, allReadTheSameAndTheCheckTellsWhatIsNotKept)
{
    const TempFolder folder;
    const std::string file = folder.path(INI_ALERT_MAPPING_FILE);
    morlan_set_install_path(folder.path().c_str());
    morlan_set_debug_sink([](void*, const char*) {}, nullptr);

    std::vector<std::string> texts;
    for (const std::string text : jsonLines(goldenText("mapping-texts")))
        texts.push_back(text);
    for (const auto& row : jsonLines(goldenText("config-checks")))
        texts.push_back(row.value("mapping", ""));
    const auto pieces = jsonLines(goldenText("mapping-pieces"));
    std::mt19937 random(1); // the same texts in each run
    while (texts.size() < 4000) {
        texts.emplace_back();
        for (std::size_t count = 1 + random() % 14; count > 0; --count)
            texts.back() += pieces[random() % pieces.size()].get<std::string>();
    }

    constexpr unsigned int MOST_WRITES = 100; // each way; they wait for the disk
    constexpr unsigned int NEXT = 4242;
    unsigned int kept = 0;
    unsigned int told = 0;
    for (const std::string& text : texts) {
        SCOPED_TRACE(testing::PrintToString(text));
        // A new file each time: some file systems wait for the disk when one is cut and written again.
        std::filesystem::remove(file);
        folder.write(INI_ALERT_MAPPING_FILE, text);
        const MappingFile mapping(text);
        ASSERT_EQ(pluginsAnswers(), hostsAnswers(mapping));
        if (mapping.sequenceNumber() == INI_NO_NUMBER)
            continue;
        const Findings findings = MappingCheck(text).run();
        const bool isTold = std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
            return finding.effect == Effect::Repetition;
        });
        if (++(isTold ? told : kept) > MOST_WRITES)
            continue;
        ASSERT_EQ(stg::writeToIniFileAgainstKey(INI_ALERT_MAPPING_FILE, INI_SEQUENCE_SECTION,
                                                INI_SEQUENCE_KEY, NEXT),
                  0);
        ASSERT_EQ(pluginsNumber(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY) == NEXT, !isTold);
    }
    EXPECT_GT(std::min(kept, told), MOST_WRITES);
    morlan_reset();
}
