#include "mvsim/scenario/Document.h"

#include <cassert>
#include <utility>

namespace mvsim
{

namespace
{

void empty(Json& value)
{
    if (!value.is_structured())
        return;
    for (Json& element : value)
        empty(element);
    value.clear();
}

} // namespace

Document::Document() = default;

Document::Document(Json&& parsed) : root(std::move(parsed)) {}

Document::~Document()
{
    try {
        empty(root);
    } catch (const Json::exception&) { // of an iterator that met another container: none does
        assert(false);
    }
}

} // namespace mvsim
