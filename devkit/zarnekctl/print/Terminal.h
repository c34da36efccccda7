// What the receiver of the output can show.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_TERMINAL_H
#define ZARNEK_DEVKIT_ZARNEKCTL_TERMINAL_H

#include "zarnekctl/print/Health.h"

#include <string>

namespace zarnekctl
{

// How results are drawn; a default one is plain ASCII without colours, fit for a file.
struct Style {
    bool utf8 = false;
    bool colours = false;

    const char* arrow() const { return utf8 ? "\u2192" : "->"; }
    const char* separator() const { return utf8 ? " \u00b7 " : ", "; }
    // The text in the colour of the health, when there are colours.
    std::string coloured(const std::string& text, Health health) const;
    std::string bold(const std::string& text) const;
};

// The style for standard output: UTF-8 as LC_ALL, LC_CTYPE or LANG says; colours on a terminal only, unless
// TERM is "dumb" or NO_COLOR is set.
Style standardOutputStyle();

} // namespace zarnekctl

#endif
