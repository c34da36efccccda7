// Files beside these tests that hold what is read, or what is to come out; after a wanted change of the
// output the file is written anew and read by its author.
#ifndef ZARNEK_TESTS_ZARNEKCTL_GOLDEN_H
#define ZARNEK_TESTS_ZARNEKCTL_GOLDEN_H

#include "common/DataRows.h"

std::string goldenFile(const std::string& name);
std::string goldenText(const std::string& name);
// Each of the objects has at least the members that its line in the golden file has.
void expectMembers(const std::vector<nlohmann::json>& objects, const std::string& golden);

#endif
