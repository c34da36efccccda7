#include "morlan/EnvironmentSetting.h"

#include <cstdlib>

namespace morlan
{

namespace
{

std::optional<std::string> copied(const char* text)
{
    return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

} // namespace

void EnvironmentSetting::set(const char* text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_text = copied(text);
    m_isSet = true;
}

void EnvironmentSetting::reset()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isSet = false;
    m_text.reset();
}

std::optional<std::string> EnvironmentSetting::get() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_isSet ? m_text : copied(secure_getenv(m_variable));
}

} // namespace morlan
