// How the report looks: the text of report.css, which the build puts into the program.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_STYLESHEET_H
#define ZARNEK_DEVKIT_ZARNEKCTL_STYLESHEET_H

namespace zarnekctl
{

extern const char* const STYLE_SHEET;

} // namespace zarnekctl

#endif
