// What zarnekctl tells its caller by its exit status.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_EXITSTATUS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_EXITSTATUS_H

namespace zarnekctl
{

enum class ExitStatus {
    Done = 0,
    PluginFailed = 1, // the plug-in or the vendor library failed, or output was lost
    WrongUsage = 2,   // the command line
    BadInput = 3      // scenario, configuration or a library file, what others can write included
};

constexpr int exitCode(ExitStatus status)
{
    return static_cast<int>(status);
}

} // namespace zarnekctl

#endif
