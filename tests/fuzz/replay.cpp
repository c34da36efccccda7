// Runs a fuzz target over the files of folders. The last line names the one at hand.
#include "common/TempFolder.h"

#include <cstdint>
#include <iostream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** folders)
{
    bool any = false;
    for (int folder = 1; folder < count; ++folder) {
        for (const auto& file : std::filesystem::directory_iterator(folders[folder])) {
            std::cout << file.path().string() << std::endl;
            const std::string input = TempFolder::readFile(file.path().string());
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
            any = true;
        }
    }
    return any ? 0 : 1;
}
