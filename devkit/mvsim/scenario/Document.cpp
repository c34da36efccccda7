#include "mvsim/scenario/Document.h"

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
    empty(root);
}

} // namespace mvsim
