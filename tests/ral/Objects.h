// Objects for the tests of the data engine, made and shown by short names: ctl0 is controller 0, pd0.3 the
// physical disk in slot 3 of controller 0, vd0.1 its virtual disk 1.
#ifndef ZARNEK_TESTS_OBJECTS_H
#define ZARNEK_TESTS_OBJECTS_H

#include <sdo.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

// A new object; `status` becomes its property SSPROP_STATUS_U32, which no identity contains.
void* make(const std::string& name, std::uint32_t status = 0);
void addU32(void* object, unsigned short id, std::uint32_t value);

// The name of an object, with `:status` behind it where that is not 0; `none` for null, `?` for what has no
// name of this kind.
std::string nameOf(const void* object);

// Calls with objects made for them, which go afterwards unless they pass to the data engine.
int insertObject(const std::string& name, const std::string& parent = {}, std::uint32_t status = 0);
int linkObjects(const std::string& upper, const std::string& lower);
// The names in the list, with blanks between; the status instead if that is not 0. No name lists the top.
std::string listObjects(const std::string& name, unsigned int type);

// The data engine's content, an object each: `name<parent`, the names of the objects linked below it in
// brackets, and the number of insertions if there were more than one. `!` marks incomplete objects.
std::vector<std::string> content();

// Starts with an empty data engine, and demands in the end that nothing is left allocated.
class RalTest : public testing::Test
{
  protected:
    void TearDown() override;
};

#endif
