// Discovery as one table, a line for each object, in the manner of the block device lists that
// administrators know.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_TABLEPRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_TABLEPRINTER_H

#include "zarnekctl/print/Columns.h"
#include "zarnekctl/print/Printer.h"

namespace zarnekctl
{

class TablePrinter : public Printer
{
  public:
    explicit TablePrinter(Style style) : m_style(style) {}
    void print(const System& system, std::ostream& out) const override;

  private:
    void addRow(const std::string& graph, const Object& object, Columns& columns) const;

    Style m_style;
};

} // namespace zarnekctl

#endif
