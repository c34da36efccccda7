#include "zarnekctl/report/Markup.h"

#include "common/Utf8.h"

namespace zarnekctl
{

namespace
{

std::string escapedMarkup(const std::string& text)
{
    std::string out;
    for (const char character : devkit::escaped(text)) {
        switch (character) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        case '\'':
            out += "&#39;";
            break;
        default:
            out += character;
        }
    }
    return out;
}

} // namespace

Markup::Markup(const std::string& text) : m_html(escapedMarkup(text)) {}

Markup& Markup::operator+=(const Markup& more)
{
    m_html += more.m_html;
    return *this;
}

Markup operator+(Markup left, const Markup& right)
{
    left += right;
    return left;
}

Markup Markup::element(const char* tag, const Attributes& attributes, const Markup& content)
{
    Markup made;
    made.m_html = std::string("<") + tag;
    for (const auto& [name, value] : attributes)
        if (!value.empty())
            made.m_html += std::string(" ") + name + "=\"" + escapedMarkup(value) + '"';
    made.m_html += '>' + content.m_html + "</" + tag + '>';
    return made;
}

Markup element(const char* tag, const std::string& cssClass, const Markup& content)
{
    return Markup::element(tag, {{"class", cssClass}}, content);
}

} // namespace zarnekctl
