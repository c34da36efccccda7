#include "zarnekctl/monitor/MonitorRecords.h"

#include "zarnekctl/monitor/AlertTable.h"

namespace zarnekctl
{

std::string Alert::objectName() const
{
    if (kind == ObjectKind::Controller)
        return namedObject(kind, controller);
    return onController(namedObject(kind, device), controller);
}

std::string Alert::meaning() const
{
    const AlertRow* row = alertRow(number);
    return row == nullptr ? "alert " + std::to_string(number) : row->meaning;
}

} // namespace zarnekctl
