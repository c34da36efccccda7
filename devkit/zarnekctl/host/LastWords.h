// What is said when an exception ends the process: those of the plug-in's event thread nobody catches.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_LASTWORDS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_LASTWORDS_H

namespace zarnekctl
{

// From now on such an exception is told on standard error before the process aborts.
void prepareLastWords();

} // namespace zarnekctl

#endif
