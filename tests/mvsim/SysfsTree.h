// A sysfs tree in a folder, made line by line.
#ifndef ZARNEK_TESTS_SYSFSTREE_H
#define ZARNEK_TESTS_SYSFSTREE_H

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

class SysfsTree
{
  public:
    explicit SysfsTree(const std::string& root)
    {
        std::filesystem::create_directories(root + "/block");
        m_root = std::filesystem::canonical(root);
    }
    std::string root() const { return m_root.string(); }

    // `in` names the folder of the files behind it, `drop` takes something away, "#" begins a comment, and
    // all else is put.
    void perform(const std::string& line)
    {
        std::error_code error;
        if (line.rfind("in ", 0) == 0)
            m_folder = line.substr(3);
        else if (line.rfind("drop ", 0) == 0 && isInside(m_root / line.substr(5)))
            std::filesystem::remove_all(m_root / line.substr(5), error);
        else if (line.rfind("drop ", 0) != 0 && !line.empty() && line.front() != '#')
            put(m_folder, line);
    }
    // Files below a folder, with semicolons between: `name=content`, or `name -> target` for a link. What
    // would lie or lead outside the tree, or cannot be there, is left out.
    void put(const std::string& folder, const std::string& files) const
    {
        std::istringstream stream(files);
        std::error_code error;
        for (std::string file; std::getline(stream, file, ';');) {
            const std::size_t equals = file.find('=');
            const std::size_t arrow = file.find(" -> ");
            const auto path = m_root / folder / file.substr(0, std::min(equals, arrow));
            if (!isInside(path))
                continue;
            std::filesystem::create_directories(path.parent_path(), error);
            if (arrow == std::string::npos)
                std::ofstream(path) << (equals < file.size() ? file.substr(equals + 1) : "") << '\n';
            else if (isInside(path.parent_path() / file.substr(arrow + 4)))
                std::filesystem::create_directory_symlink(file.substr(arrow + 4), path, error);
        }
    }

  private:
    bool isInside(const std::filesystem::path& path) const
    {
        std::error_code error;
        const std::string place = std::filesystem::weakly_canonical(path, error).string() + '/';
        return !error && place.rfind(m_root.string() + '/', 0) == 0;
    }

    std::filesystem::path m_root;
    std::string m_folder;
};

#endif
