#include "common/StandIns.h"

#include "morlan/morlan_inspect.h"
#include "mvsim/api/mvsim_control.h"
#include "ral/ral_inspect.h"

#include <zarnek_ini.h>

#include <gtest/gtest.h>

#include <array>

namespace
{

void reset()
{
    morlan_reset();
    ral_reset();
    mvsim_reset();
}

std::string section(const std::string& name)
{
    return '[' + name + "]\n";
}

} // namespace

StandIns::StandIns()
{
    reset();
    morlan_set_install_path(m_folder.path().c_str());
    morlan_set_private_ini(m_folder.path("private.ini").c_str());
    nameVendorLibrary("libmvsim");
    writeMapping(section(INI_SEQUENCE_SECTION) + INI_SEQUENCE_KEY + "=0\n");
}

StandIns::~StandIns()
{
    reset();
}

void StandIns::writePrivateIni(const std::string& content) const
{
    m_folder.write("private.ini", content);
}

void StandIns::nameVendorLibrary(const std::string& name, const std::string& vendor) const
{
    writePrivateIni(section(INI_VENDOR_ID_SECTION) + INI_VENDOR_ID_KEY + '=' + vendor + '\n' +
                    section(INI_VENDOR_LIBRARY_SECTION) + INI_VENDOR_LIBRARY_KEY_PREFIX + vendor + '=' +
                    name + '\n');
}

void StandIns::writeMapping(const std::string& content) const
{
    m_folder.write(INI_ALERT_MAPPING_FILE, content);
}

std::string StandIns::readMapping() const
{
    return m_folder.read(INI_ALERT_MAPPING_FILE);
}

void StandIns::loadScenario(const std::string& file) const
{
    std::array<char, 1000> message{};
    ASSERT_EQ(mvsim_load_scenario(file.c_str(), message.data(), message.size()), 0) << message.data();
}

void StandIns::loadScenarioText(const std::string& text) const
{
    m_folder.write("scenario.json", text);
    loadScenario(m_folder.path("scenario.json"));
}

void StandIns::loadAdapter(const std::string& members, const std::string& top, unsigned int maxBufferKB) const
{
    loadScenarioText(R"({"format": 1, "name": "test", "adapters": [{"slot": 3, "maxBufferKB": )" +
                     std::to_string(maxBufferKB) + (members.empty() ? "" : ", " + members) + "}]" +
                     (top.empty() ? "" : ", " + top) + "}");
}
