// Measures text without a screen. All characters (UTF-16 units) of a font have the same width, so that a test can
// compute sizes by hand. At 8.25 points, a character is 90 twips wide and a line is 195 twips high. At other sizes,
// both values are scaled in proportion and rounded (11 points: 120 and 260). Both values are at least 1.
#pragma once

#include <algorithm>
#include <cmath>

#include "runtime/Font.h"
#include "runtime/TextLayout.h"

namespace runtime::headless {

class FixedMeasure : public TextMeasure {
 public:
    explicit FixedMeasure(const Font& font) : unitWidth_(Scaled(90, font)), lineHeight_(Scaled(195, font)) {}

    int Width(StringView run) override { return static_cast<int>(run.size()) * unitWidth_; }
    std::size_t Fit(StringView run, int width) override {
        return std::min(run.size(), static_cast<std::size_t>(width / unitWidth_));
    }
    int LineHeight() override { return lineHeight_; }

 private:
    static int Scaled(float twips, const Font& font) {
        constexpr float kDesignSize = 8.25F;
        return std::max(1, static_cast<int>(std::lround(twips * font.size / kDesignSize)));
    }

    const int unitWidth_;
    const int lineHeight_;
};

}  // namespace runtime::headless
