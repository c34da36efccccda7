// One output form of what discovery found.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_PRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_PRINTER_H

#include "zarnekctl/host/System.h"
#include "zarnekctl/print/Terminal.h"

#include <ostream>
#include <string>
#include <vector>

namespace zarnekctl
{

class Printer
{
  public:
    virtual ~Printer() = default;
    // Writes the whole of it; never throws for what an object holds or lacks.
    virtual void print(const System& system, std::ostream& out) const = 0;
};

// The value of a property in words, "-" where the object lacks it or the text is empty.
std::string cell(const Object& object, unsigned int property, const Style& style);
// The properties of a controller that deserve a word beside its condition, in order. A firmware of zeros
// comes from a vendor who tells none, and is left out.
std::vector<unsigned int> controllerFacts(const Object& controller);

} // namespace zarnekctl

#endif
