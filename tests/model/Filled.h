// A vendor class of the model with the records that it is filled from.
#ifndef ZARNEK_TESTS_FILLED_H
#define ZARNEK_TESTS_FILLED_H

#include "mvlayer/Binders.h"

#include <algorithm>
#include <iterator>
#include <string>

template <class Model, class Binder>
struct Filled : Model {
    using Model::operator=;

    void fill() { *this = static_cast<void*>(&binder); }

    stg::SInfoHelper_t helper;
    Binder binder;
};

// Puts a text into a record's field, which it may fill to its end.
template <std::size_t Width>
void put(char (&field)[Width], const std::string& text)
{
    std::copy_n(text.data(), std::min(text.size(), Width), std::begin(field));
}

#endif
