// Discovery as a tree for people: controllers, below each its disks and its virtual disks with their links,
// at the end a census and what needs attention.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_TREEPRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_TREEPRINTER_H

#include "zarnekctl/print/Printer.h"

namespace zarnekctl
{

class TreePrinter : public Printer
{
  public:
    explicit TreePrinter(Style style) : m_style(style) {}
    void print(const System& system, std::ostream& out) const override;

  private:
    void printController(const System& system, std::size_t index, std::ostream& out) const;
    void printGroup(const System& system, const std::vector<std::size_t>& members, const std::string& title,
                    bool last, std::ostream& out) const;
    void printLoose(const System& system, std::ostream& out) const;
    void printCensus(const System& system, std::ostream& out) const;

    Style m_style;
};

} // namespace zarnekctl

#endif
