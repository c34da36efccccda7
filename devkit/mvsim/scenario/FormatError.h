// What is wrong with a scenario: the place as a JSON pointer, what was expected there and what was found.
#ifndef ZARNEK_DEVKIT_MVSIM_FORMATERROR_H
#define ZARNEK_DEVKIT_MVSIM_FORMATERROR_H

#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>

namespace mvsim
{

using Json = nlohmann::json;

class FormatError : public std::runtime_error
{
  public:
    FormatError(const std::string& place, const std::string& expected, const std::string& found);
};

// The place of a member or an element below another place.
std::string placeBelow(const std::string& place, const std::string& key);
std::string placeBelow(const std::string& place, std::size_t index);
// What stands in the file, short and on one line.
std::string describe(const Json& value);

} // namespace mvsim

#endif
