// A text that an environment variable gives until the host sets it. Safe from several threads.
#ifndef ZARNEK_DEVKIT_MORLAN_ENVIRONMENTSETTING_H
#define ZARNEK_DEVKIT_MORLAN_ENVIRONMENTSETTING_H

#include <mutex>
#include <optional>
#include <string>

namespace morlan
{

class EnvironmentSetting
{
  public:
    // `variable` is kept, not copied.
    explicit EnvironmentSetting(const char* variable) : m_variable(variable) {}

    // From now on `text` counts, or for null that there is none; the variable no more.
    void set(const char* text);
    // Back to the variable.
    void reset();
    // Nothing when the host set null, or set nothing and the variable is missing.
    std::optional<std::string> get() const;

  private:
    const char* const m_variable;
    mutable std::mutex m_mutex;
    bool m_isSet = false;
    std::optional<std::string> m_text;
};

} // namespace morlan

#endif
