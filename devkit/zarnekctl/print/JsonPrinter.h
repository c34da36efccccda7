// Discovery as one JSON document of a stable shape; docs/json-output.md describes it.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_JSONPRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_JSONPRINTER_H

#include "zarnekctl/print/Printer.h"

namespace zarnekctl
{

class JsonPrinter : public Printer
{
  public:
    void print(const System& system, std::ostream& out) const override;
};

} // namespace zarnekctl

#endif
