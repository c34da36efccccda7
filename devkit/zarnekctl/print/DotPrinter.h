// Discovery as a graph for Graphviz: solid edges to children, dashed ones for links.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_DOTPRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_DOTPRINTER_H

#include "zarnekctl/print/Printer.h"

namespace zarnekctl
{

class DotPrinter : public Printer
{
  public:
    void print(const System& system, std::ostream& out) const override;
};

} // namespace zarnekctl

#endif
