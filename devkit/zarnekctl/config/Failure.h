// The one exception of the host: a run that cannot go on, with the exit status it ends in.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_FAILURE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_FAILURE_H

#include "zarnekctl/config/ExitStatus.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace zarnekctl
{

class Failure : public std::runtime_error
{
  public:
    // `message` is one line: what is wrong, where, what to do. `log` are lines that tell more about it.
    Failure(ExitStatus status, const std::string& message, std::vector<std::string> log = {})
        : std::runtime_error(message), m_status(status), m_log(std::move(log))
    {
    }

    ExitStatus status() const { return m_status; }
    const std::vector<std::string>& log() const { return m_log; }

  private:
    ExitStatus m_status;
    std::vector<std::string> m_log;
};

} // namespace zarnekctl

#endif
