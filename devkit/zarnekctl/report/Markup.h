// HTML in which nothing from outside is markup.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MARKUP_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MARKUP_H

#include <string>
#include <utility>
#include <vector>

namespace zarnekctl
{

// A piece of a page. A text becomes one only by being escaped, and tags are made by `element` alone, so that
// what a device says cannot be anything but text.
class Markup
{
  public:
    Markup() = default;
    Markup(const std::string& text);
    Markup(const char* text) : Markup(std::string(text)) {}

    Markup& operator+=(const Markup& more);
    bool isEmpty() const { return m_html.empty(); }
    const std::string& html() const { return m_html; }

    // Names in the order in which they are written; values are escaped, and those without a text left out.
    using Attributes = std::vector<std::pair<const char*, std::string>>;
    // `tag` and the names of attributes are taken as they are.
    static Markup element(const char* tag, const Attributes& attributes, const Markup& content);

  private:
    std::string m_html;
};

Markup operator+(Markup left, const Markup& right);

// An element of a class, or of none.
Markup element(const char* tag, const std::string& cssClass, const Markup& content);

} // namespace zarnekctl

#endif
