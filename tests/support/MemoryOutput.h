// Keeps the lines of a trace in memory.
#pragma once

#include <string>
#include <vector>

#include "trace/Output.h"

namespace tests {

class MemoryOutput : public trace::Output {
 public:
    void Write(std::string_view line) noexcept override { lines.emplace_back(line); }
    void CountLost() noexcept override { ++lost; }

    std::vector<std::string> lines;
    int lost = 0;
};

}  // namespace tests
