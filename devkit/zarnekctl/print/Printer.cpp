#include "zarnekctl/print/Printer.h"

#include "zarnekctl/print/PropertyTable.h"

namespace zarnekctl
{

std::string cell(const Object& object, unsigned int property, const Style& style)
{
    const Property* found = object.find(property);
    const std::string text = found == nullptr ? "" : describe(*found, object.kind(), !style.utf8);
    return text.empty() ? "-" : text;
}

} // namespace zarnekctl
