#include "Machine.h"

#include "morlan/morlan_inspect.h"
#include "mvsim/api/mvsim_control.h"
#include "ral/ral_inspect.h"

#include <array>
#include <filesystem>
#include <stdexcept>

namespace
{

void resetStandIns()
{
    morlan_reset();
    ral_reset();
    mvsim_reset();
}

} // namespace

Machine::Machine()
{
    resetStandIns();
    m_folder.write("private.ini", "[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=libmvsim\n");
    std::filesystem::copy_file(ZARNEK_SOURCE_DIR "/config/MarvelAlertMapping.ini", mappingFile());
    morlan_set_install_path(m_folder.path().c_str());
    morlan_set_private_ini(m_folder.path("private.ini").c_str());
    morlan_set_debug_sink([](void*, const char*) {}, nullptr);
}

Machine::~Machine()
{
    resetStandIns();
}

void Machine::loadSystem(unsigned int disks, unsigned int drives) const
{
    m_folder.write("scenario.json",
                   R"({"format": 1, "name": "bench", "adapters": [{
                         "slot": 1, "model": 4127, "ports": 8, "maxBufferKB": 64, "rom": [1, 2, 3, 4],
                         "disks": [{"id": 0, "slot": 0, "repeat": )" +
                       std::to_string(disks) + R"(, "model": "MODEL ONE", "serial": "A1", "revision": "R1",
                             "linkFlags": "sas", "featureFlags": ["6G", "12G"], "linkSpeed": "12G",
                             "size": "4TB", "blockSize": 512, "raidStatus": "online"}],
                         "virtualDisks": [{"id": 0, "logicalDrive": 0, "repeat": )" +
                       std::to_string(drives) + R"(, "name": "DATA", "raid": "6", "status": "optimal",
                             "stripeKB": 64, "size": "24TB"}]}]})");
    std::array<char, 1000> message{};
    if (mvsim_load_scenario(m_folder.path("scenario.json").c_str(), message.data(), message.size()) != 0)
        throw std::runtime_error(message.data());
}
