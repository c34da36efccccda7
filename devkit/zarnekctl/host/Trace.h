// The record of a run, line by line in the order of what happened, each with a word for its kind ahead:
//   cmd  control commands to the plug-in and their results
//   log  debug text of the plug-in
//   sm   calls of the support library
//   ral  calls of the data engine
//   mv   calls of the vendor library
//   ntf  properties of a notification
//   sys  calls of the C library that the host stands in for
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_TRACE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_TRACE_H

#include <mutex>
#include <ostream>
#include <string>
#include <string_view>

namespace zarnekctl
{

// Safe from several threads.
class Trace
{
  public:
    // `configFolder` differs from machine to machine and is shown as CONFIG. A null `out` records nothing.
    Trace(std::ostream* out, std::string configFolder);

    bool isOn() const { return m_out != nullptr; }
    void line(std::string_view kind, std::string_view text);

  private:
    std::ostream* m_out;
    std::string m_configFolder;
    std::mutex m_mutex;
};

} // namespace zarnekctl

#endif
