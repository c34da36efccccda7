// The alert mapping file as the plug-in and the host read it, and as the support library writes it.
#include "common/TempFolder.h"
#include "morlan/morlan_inspect.h"
#include "vendor/IniAccess.h"
#include "zarnekctl/config/MappingCheck.h"
#include <zarnek_ini.h>

#include <gmock/gmock.h>

#include <random>
#include <stdexcept>

using namespace zarnekctl;

namespace
{

using Pairs = std::map<unsigned int, unsigned int>;

// What reading gives; nothing where a line of white space ends it.
struct Answers {
    std::vector<std::optional<unsigned int>>
        numbers;                             // of each key in each section, INI_NO_NUMBER without one
    std::vector<std::optional<Pairs>> pairs; // of each section
};

bool operator==(const Answers& left, const Answers& right)
{
    return left.numbers == right.numbers && left.pairs == right.pairs;
}

template <typename Read>
auto unlessFatal(Read read) -> std::optional<decltype(read())>
{
    try {
        return read();
    } catch (const std::out_of_range&) {
        return std::nullopt;
    }
}

class Mapping : public testing::Test
{
  protected:
    Mapping()
    {
        morlan_set_install_path(m_folder.path().c_str());
        morlan_set_debug_sink([](void*, const char*) {}, nullptr);
    }
    ~Mapping() override { morlan_reset(); }

    // A new file each time: some file systems wait for the disk when one is cut and written again.
    void write(const std::string& content)
    {
        std::filesystem::remove(m_folder.path(INI_ALERT_MAPPING_FILE));
        m_folder.write(INI_ALERT_MAPPING_FILE, content);
    }

    static std::optional<unsigned int> pluginsNumber(const std::string& section, const std::string& key)
    {
        return unlessFatal([&] {
            return static_cast<unsigned int>(
                stg::readFromIniFileAgainstKey(INI_ALERT_MAPPING_FILE, section, key));
        });
    }

    static Answers ofPlugin()
    {
        Answers answers;
        for (const std::string section : SECTIONS) {
            for (const char* key : KEYS)
                answers.numbers.push_back(pluginsNumber(section, key));
            answers.pairs.push_back(unlessFatal([&] {
                Pairs pairs;
                stg::readAllKeyValueFromIniFromSection(pairs, INI_ALERT_MAPPING_FILE, section);
                return pairs;
            }));
        }
        return answers;
    }

    static Answers ofHost(const MappingFile& file)
    {
        Answers answers;
        for (const std::string section : SECTIONS) {
            for (const char* key : KEYS) {
                const auto* line = file.find(section, key);
                answers.numbers.push_back(line == nullptr ? INI_NO_NUMBER
                                                          : MappingFile::numberOf(line->value));
                if (file.fatalOnTheWayTo(section, key) != nullptr)
                    answers.numbers.back().reset();
            }
            std::optional<Pairs> pairs = Pairs();
            for (const auto& line : file.lines()) {
                if (line.kind == MappingFile::LineKind::Fatal)
                    pairs.reset();
                else if (pairs && line.kind == MappingFile::LineKind::Pair &&
                         (line.headless || line.section == section))
                    pairs->emplace(MappingFile::numberOf(line.key), MappingFile::numberOf(line.value));
                if (!pairs)
                    break;
            }
            answers.pairs.push_back(pairs);
        }
        return answers;
    }

    // The line that the check names because a new number would not be read; 0 for none.
    static std::size_t lineOfRepetition(const std::string& content)
    {
        for (const Finding& finding : MappingCheck(content).run()) {
            if (finding.effect == Effect::Repetition)
                return finding.line;
        }
        return 0;
    }

    // Whether a number that the plug-in has the support library write is the one that it reads next.
    static bool isKept()
    {
        constexpr unsigned int NEXT = 4242;
        return stg::writeToIniFileAgainstKey(INI_ALERT_MAPPING_FILE, INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY,
                                             NEXT) == 0 &&
               pluginsNumber(INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY) == NEXT;
    }

    static constexpr const char* SECTIONS[] = {INI_SEQUENCE_SECTION, INI_ADAPTER_SECTION, "7", "]"};
    static constexpr const char* KEYS[] = {INI_SEQUENCE_KEY, "7", "12", "[7", ""};

  private:
    const TempFolder m_folder;
};

TEST_F(Mapping, oddTextsReadAlikeAndTheCheckTellsWhichNumberIsNotKept)
{
    const struct {
        std::string content;
        std::size_t line; // of the warning; 0: none
    } rows[] = {
        {"[EventSequenceNumber]\nSequenceNumber=0", 0},
        {" [ EventSequenceNumber ]\r\n\tSequenceNumber =\t7 ;x\r\n", 0},
        {"[EventSequenceNumber]\nSequence Number = 0", 2},
        {"[EventSequenceNumber]\n\fSequenceNumber=0", 2},
        {"[EventSequenceNumber]\nSequenceNumber\v=0", 2},
        {"[EventSequenceNumber]\n7=2048\nSequenceNumber", 3},
        {"[Event SequenceNumber]\n\nSequenceNumber=0", 1},
        {"[Event SequenceNumber]\nSequence Number=0", 2},
        {"[Adapter]\n][EventSequenceNumber\nSequenceNumber=0", 2},
        {"\v[EventSequenceNumber]\nSequenceNumber=0\n[EventSequenceNumber]\nSequenceNumber=0", 1},
        {"SequenceNumber=0\n[EventSequenceNumber]\nSequenceNumber=0", 1},
        {"[EventSequenceNumber]\n#[7]\nSequenceNumber=1\n[EventSequenceNumber]\nSequenceNumber=2", 5},
        {"7=2050\n[Adapter]\n7=2048\n7=2049 ; old", 0},
        {"[Adapter]\n7=4294967296\n \n12=1", 0},
        {" [ Ada\tpter ] \n 1 2 = 20 48\n;7=1\n7=-1\n[7\n=\n", 0},
        {"x[Adapter]\n7=2048\n[[7]\n7=1", 0},
        {"7]\n[]\n[]]\n7=3", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.content));
        write(row.content);
        EXPECT_EQ(ofPlugin(), ofHost(MappingFile(row.content)));
        EXPECT_EQ(lineOfRepetition(row.content), row.line);
    }
}

TEST_F(Mapping, anyTextReadsAlikeAndItsNumberIsKeptUnlessTheCheckTells)
{
    const std::vector<std::string> pieces{"\n",
                                          "\n",
                                          "\n",
                                          "[",
                                          "]",
                                          "=",
                                          ";",
                                          "#",
                                          " ",
                                          "\t",
                                          "\r",
                                          "\v",
                                          "\f",
                                          "7",
                                          "12",
                                          "-",
                                          "\xef\xbb\xbf",
                                          std::string(1, '\0'),
                                          "\n7=2048",
                                          "[Adapter]",
                                          "\n[7]\n",
                                          "[EventSequenceNumber]",
                                          "\n[EventSequenceNumber]\n",
                                          "\n[Event SequenceNumber]\n",
                                          "SequenceNumber",
                                          "SequenceNumber=",
                                          "\nSequenceNumber=7\n",
                                          "Sequence Number = 7"};
    constexpr std::size_t MOST_WRITES = 100; // of each kind; each waits for the disk
    std::mt19937 random(1);                  // NOLINT: the same texts in each run
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    std::size_t kept = 0;
    std::size_t told = 0;
    std::size_t fatal = 0;
    for (int round = 0; round < 4000; ++round) {
        std::string content;
        for (std::size_t count = 1 + below(14); count > 0; --count)
            content += pieces[below(pieces.size())];
        SCOPED_TRACE(testing::PrintToString(content));
        write(content);
        const Answers answers = ofPlugin();
        ASSERT_EQ(answers, ofHost(MappingFile(content)));
        const auto number = answers.numbers.front();
        fatal += number ? 0 : 1;
        if (number.value_or(INI_NO_NUMBER) == INI_NO_NUMBER)
            continue;
        const bool isTold = lineOfRepetition(content) != 0;
        std::size_t& written = isTold ? told : kept;
        if (++written <= MOST_WRITES) {
            ASSERT_EQ(isKept(), !isTold);
        }
    }
    for (const std::size_t count : {kept, told, fatal})
        EXPECT_GT(count, MOST_WRITES);
}

} // namespace
