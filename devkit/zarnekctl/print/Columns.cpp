#include "zarnekctl/print/Columns.h"

#include "common/Utf8.h"

#include <algorithm>

namespace zarnekctl
{

void Columns::add(std::string prefix, std::vector<Cell> cells)
{
    m_lines.push_back({std::move(prefix), std::move(cells)});
}

void Columns::print(std::ostream& out, const Style& style) const
{
    std::size_t prefixWidth = 0;
    std::vector<std::size_t> widths;
    for (const Line& line : m_lines) {
        prefixWidth = std::max(prefixWidth, devkit::displayWidth(line.prefix));
        widths.resize(std::max(widths.size(), line.cells.size()));
        for (std::size_t index = 0; index < line.cells.size(); ++index)
            widths[index] = std::max(widths[index], devkit::displayWidth(line.cells[index].text));
    }
    for (const Line& line : m_lines) {
        out << devkit::padded(line.prefix, prefixWidth);
        std::size_t shown = line.cells.size();
        while (shown > 0 && line.cells[shown - 1].text.empty()) // no blanks at the end of a line
            --shown;
        for (std::size_t index = 0; index < shown; ++index) {
            const Cell& cell = line.cells[index];
            if (widths[index] == 0) // a column that no line fills
                continue;
            const std::string blanks(widths[index] - devkit::displayWidth(cell.text), ' ');
            if (index != 0)
                out << "  ";
            out << (cell.alignRight ? blanks : "")
                << (cell.hasHealth ? style.coloured(cell.text, cell.health) : cell.text)
                << (cell.alignRight || index + 1 == shown ? "" : blanks);
        }
        out << '\n';
    }
}

} // namespace zarnekctl
