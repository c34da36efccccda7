// Rows of data in a file beside a test: one JSON object on each line.
#ifndef ZARNEK_TESTS_DATAROWS_H
#define ZARNEK_TESTS_DATAROWS_H

#include "common/TempFolder.h"

#include <nlohmann/json.hpp>

#include <sstream>

inline std::vector<nlohmann::json> jsonLines(const std::string& text)
{
    std::vector<nlohmann::json> rows;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        rows.push_back(nlohmann::json::parse(line));
    return rows;
}

// `file` is named from the top of the source tree.
inline std::vector<nlohmann::json> dataRows(const std::string& file)
{
    return jsonLines(TempFolder::readFile(ZARNEK_SOURCE_DIR "/" + file));
}

#endif
