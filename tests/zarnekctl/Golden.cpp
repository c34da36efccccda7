#include "zarnekctl/Golden.h"

#include <gtest/gtest.h>

using nlohmann::json;

std::string goldenFile(const std::string& name)
{
    return ZARNEK_SOURCE_DIR "/tests/zarnekctl/golden/" + name;
}

std::string goldenText(const std::string& name)
{
    return TempFolder::readFile(goldenFile(name));
}

void expectMembers(const std::vector<json>& objects, const std::string& golden)
{
    const auto expected = jsonLines(goldenText(golden));
    ASSERT_EQ(objects.size(), expected.size());
    for (std::size_t index = 0; index < objects.size(); ++index) {
        const json members = expected[index].flatten();
        for (const auto& [place, value] : members.items())
            EXPECT_EQ(objects[index].value(json::json_pointer(place), json("absent")), value)
                << index << place;
    }
}
