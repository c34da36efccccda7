#include "zarnekctl/report/Exposition.h"

#include "common/Utf8.h"

namespace zarnekctl
{

namespace
{

// What devices say has no line ends any more once its control characters are shown as text.
std::string labelText(const std::string& value)
{
    std::string out;
    for (const char character : devkit::escaped(value)) {
        if (character == '"' || character == '\\')
            out += '\\';
        out += character;
    }
    return out;
}

} // namespace

void Exposition::begin(const std::string& name, const char* type, const std::string& help)
{
    m_name = name;
    m_head = "# HELP " + name + ' ' + help + "\n# TYPE " + name + ' ' + type + '\n';
}

void Exposition::sample(const Labels& labels, const std::string& value)
{
    m_out << m_head << m_name;
    m_head.clear();
    char separator = '{';
    for (const auto& [label, text] : labels) {
        if (text.empty())
            continue;
        m_out << separator << label << "=\"" << labelText(text) << '"';
        separator = ',';
    }
    m_out << (separator == '{' ? " " : "} ") << value << '\n';
}

} // namespace zarnekctl
