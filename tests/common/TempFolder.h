// A fresh folder that goes with all its content.
#ifndef ZARNEK_TESTS_TEMPFOLDER_H
#define ZARNEK_TESTS_TEMPFOLDER_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

class TempFolder
{
  public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "zarnek-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        m_path = pattern;
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() { std::filesystem::remove_all(m_path); }

    std::string path(const std::string& name = {}) const
    {
        return name.empty() ? m_path : m_path + '/' + name;
    }

    void write(const std::string& name, const std::string& content) const
    {
        std::ofstream(path(name), std::ios::binary) << content;
    }
    std::string read(const std::string& name) const { return readFile(path(name)); }
    // Any file's content.
    static std::string readFile(const std::string& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::size_t entries() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

  private:
    std::string m_path;
};

#endif
