// Lines of cells that stand under each other.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_COLUMNS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_COLUMNS_H

#include "zarnekctl/print/Terminal.h"

#include <ostream>
#include <string>
#include <vector>

namespace zarnekctl
{

class Columns
{
  public:
    struct Cell {
        std::string text;
        bool alignRight = false;
        bool hasHealth = false; // shown in the colour of `health`
        Health health = Health::Good;

        Cell(std::string content, bool right = false) : text(std::move(content)), alignRight(right) {}
        Cell(std::string content, Health state) : text(std::move(content)), hasHealth(true), health(state) {}
    };

    // `prefix` stands ahead of the cells; the first cell begins in one column whatever the prefixes are.
    void add(std::string prefix, std::vector<Cell> cells);
    void print(std::ostream& out, const Style& style) const;

  private:
    struct Line {
        std::string prefix;
        std::vector<Cell> cells;
    };
    std::vector<Line> m_lines;
};

} // namespace zarnekctl

#endif
