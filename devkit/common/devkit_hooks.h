// What every stand-in library of the devkit has in common: sinks that see its calls, and planned failures.
#ifndef ZARNEK_DEVKIT_COMMON_DEVKIT_HOOKS_H
#define ZARNEK_DEVKIT_COMMON_DEVKIT_HOOKS_H

// Receives one line of text, without a line end, on the thread that caused it. The text is valid for the
// call only. A sink may not throw, and may not call back into the library that calls it, but for its
// inspection functions. Once a sink has been replaced it is no longer running, unless a sink of the same
// place did the replacing: that waits for nobody, as two of them would wait for each other.
typedef void (*devkit_text_sink)(void* context, const char* text);

#if defined(__GNUC__)
#define DEVKIT_EXPORT __attribute__((visibility("default")))
#else
#define DEVKIT_EXPORT
#endif

#endif
