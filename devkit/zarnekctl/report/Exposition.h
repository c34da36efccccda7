// Metrics in the text format that Prometheus reads.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_EXPOSITION_H
#define ZARNEK_DEVKIT_ZARNEKCTL_EXPOSITION_H

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace zarnekctl
{

// Names in the order in which they are written; values as they are, escaped on the way. One without a value
// is left out, which means the same to the reader.
using Labels = std::vector<std::pair<std::string, std::string>>;

// All samples of a metric follow each other, so one is begun once.
class Exposition
{
  public:
    // `out` outlives it.
    explicit Exposition(std::ostream& out) : m_out(out) {}

    // What the samples from here on belong to; `type` is "gauge" or "counter". Without a sample nothing is
    // written.
    void begin(const std::string& name, const char* type, const std::string& help);
    void sample(const Labels& labels, const std::string& value);
    void sample(const Labels& labels, bool value) { sample(labels, std::string(value ? "1" : "0")); }

  private:
    std::ostream& m_out;
    std::string m_name;
    std::string m_head; // still to be written
};

} // namespace zarnekctl

#endif
