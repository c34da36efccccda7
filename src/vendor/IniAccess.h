// Configuration files: the install path, the vendor list of the support library's private INI, and the alert
// mapping file below the install path. Nothing is kept between calls and nothing is locked.
//
// File paths are given relative to the install path and begin with "/". The grammar of the mapping file:
// a line loses all its white space first; one that begins with ";" is a comment, one with "[" and "]" heads a
// section, any other is key=value. Lines ahead of the first section count as being in every section. A
// line that holds nothing but white space, without being empty, ends the reading with std::out_of_range.
#ifndef ZARNEK_VENDOR_INIACCESS_H
#define ZARNEK_VENDOR_INIACCESS_H

#include "vendor/SVendorInfo.h"

#include <map>
#include <string>
#include <vector>

namespace stg
{

// What the readers and the writer return when there is no value, file or install path.
constexpr int INI_NOT_FOUND = -1;

// The install directory; empty when it is not known.
std::string getVRAXInstallPath();

// One value of the private INI, at most 31 characters; empty when it is missing.
std::string readFromIniFile(std::string section, std::string key);
// Appends the one vendor that the system asks for, found or not.
void readFromIniFile(std::vector<SVendorInfo_t>& vendorInfo);

// The number under a key of a section, wrapped into an int; -1 when there is none.
int readFromIniFileAgainstKey(std::string filePath, std::string section, std::string keyword);
int readFromIniFileAgainstKey(std::string filePath, std::string section, unsigned int keyword);

// Writes or replaces one key: 0, the support library's status, or -1 without an install path.
int writeToIniFileAgainstKey(std::string filePath, std::string section, std::string keyword,
                             unsigned int value);

// All pairs of one section, or of all sections but one, into `map`: an existing key keeps its value. 0 or -1.
int readAllKeyValueFromIniFromSection(std::map<unsigned int, unsigned int>& map, std::string filePath,
                                      std::string section);
int readAllKeyValueFromIniExceptSection(std::map<unsigned int, unsigned int>& map, std::string filePath,
                                        std::string section);
// Chooses the first of the two for a true `fromSection`, the second otherwise.
int createAlertLookupTable(std::map<unsigned int, unsigned int>& map, std::string filePath,
                           std::string section, bool fromSection);

} // namespace stg

#endif
