// Any bytes as a scenario file: it is played, or refused in one line that begins with the file's name.
#include "common/TempFolder.h"
#include "fuzz/demand.h"
#include "mvsim/api/mvsim_control.h"

#include <array>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TempFolder folder;
    static const std::string file = folder.path("scenario.json");
    static std::array<char, 65536> message;
    folder.write("scenario.json", std::string(reinterpret_cast<const char*>(data), size));
    message[0] = '\0';
    const int status = mvsim_load_scenario(file.c_str(), message.data(), message.size());
    const std::string text = message.data();
    if (status == 0) {
        demand(text.empty(), "a scenario that is played leaves no message");
    } else {
        demand(text.compare(0, file.size() + 2, file + ": ") == 0, "a refusal begins with the file's name");
        demand(text.find_first_of("\r\n") == std::string::npos, "a refusal is one line");
    }
    return 0;
}
