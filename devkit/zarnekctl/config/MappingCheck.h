// Looks through an alert mapping file for what would stop monitoring or surprise its author.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MAPPINGCHECK_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MAPPINGCHECK_H

#include "common/IniText.h"
#include "zarnekctl/config/Finding.h"
#include "zarnekctl/config/MappingFile.h"

#include <map>
#include <utility>

namespace zarnekctl
{

class MappingCheck
{
  public:
    explicit MappingCheck(const std::string& content) : m_file(content), m_text(content) {}
    // All findings, by line.
    Findings run();

  private:
    void checkSection(const MappingFile::Line& line);
    void checkPair(const MappingFile::Line& line);
    void checkMapping(const MappingFile::Line& line);
    void checkDuplicate(const MappingFile::Line& line);
    void checkFatal(const MappingFile::Line& line);
    void checkSequenceNumber();
    void checkThatTheNumberIsKept(const MappingFile::Line& line);
    void checkThatSomethingIsMapped();
    void add(std::size_t line, Effect effect, std::string what, std::string remedy);

    const MappingFile m_file;
    const devkit::IniText m_text; // as the support library reads it, which writes the sequence number
    Findings m_findings;
    std::map<std::pair<std::string, std::string>, std::size_t> m_firstLines; // section and key
    bool m_carriageReturnTold = false;
};

} // namespace zarnekctl

#endif
