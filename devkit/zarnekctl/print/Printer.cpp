#include "zarnekctl/print/Printer.h"

#include "zarnekctl/print/PropertyTable.h"
#include <sdo.h>

namespace zarnekctl
{

std::string cell(const Object& object, unsigned int property, const Style& style)
{
    const Property* found = object.find(property);
    const std::string text = found == nullptr ? "" : describe(*found, object.kind(), !style.utf8);
    return text.empty() ? "-" : text;
}

std::vector<unsigned int> controllerFacts(const Object& controller)
{
    std::vector<unsigned int> facts;
    for (const unsigned int id : {SSPROP_FWVERSION_ASTRING, SSPROP_SLOTID_U32, SSPROP_PORTCOUNT_U32,
                                  SSPROP_REBUILDRATE_U32, SSPROP_ALARMSTATE_BOOL}) {
        const bool isVersion = id == SSPROP_FWVERSION_ASTRING;
        if (controller.find(id) != nullptr &&
            !(isVersion && controller.text(id).find_first_not_of("0.") == std::string::npos))
            facts.push_back(id);
    }
    return facts;
}

} // namespace zarnekctl
