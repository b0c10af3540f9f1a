// Lays out the query dialog in simple steps and with its own rounding. Tests compare the real layout with this layout.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "dialogs/QueryLayout.h"

namespace tests {

struct SlowPlaces {
    std::int32_t height = 0;
    runtime::Twips labelHeight = 0;
    runtime::Twips inputTop = 0;
    runtime::Twips buttonTop = 0;
};

class SlowQueryLayout {
 public:
    /// `frame` is the height of the form's title bar and frame. Returns no value if a number needs more than 32 bits.
    static std::optional<SlowPlaces> Run(const dialogs::QueryMeasures& measures, runtime::Twips frame) {
        SlowQueryLayout layout;
        const SlowPlaces places = layout.Steps(measures, frame);
        if (layout.overflowed_) return std::nullopt;
        return places;
    }

 private:
    SlowPlaces Steps(const dialogs::QueryMeasures& measures, runtime::Twips frame) {
        const double avail = measures.labelWidth - 120.0;
        const double pieces = measures.promptPieces;
        const double lines = Whole(Whole(measures.promptWidth / avail) + pieces + 3);
        const double lineH = measures.lineHeight;
        const double ctrlH = measures.inputHeight;
        double height = Whole(lines * lineH + ctrlH);
        const bool isTall = measures.kind == 4 || measures.kind == 5;
        if (isTall && height < 2400) height = 2400;
        if (!isTall && height < 2000) height = 2000;
        double buttonH = 0;
        if (measures.showsButton) {
            buttonH = measures.buttonHeight;
            height = Whole(height + 120 + buttonH);
        }
        if (measures.screenHeight < height) height = Whole(measures.screenHeight - 1200.0);
        const double inner = height - frame;
        return {
            .height = static_cast<std::int32_t>(overflowed_ ? 0 : height),
            .labelHeight = static_cast<runtime::Twips>(inner - ctrlH - 120 - buttonH),
            .inputTop = static_cast<runtime::Twips>(inner - ctrlH - 60 - buttonH),
            .buttonTop = static_cast<runtime::Twips>(inner - buttonH),
        };
    }

    /// Rounds to the nearest whole number. A number in the middle is rounded to the even neighbour.
    double Whole(double number) {
        const double below = std::floor(number);
        const double rest = number - below;
        const bool isEven = std::fmod(below, 2) == 0;
        const double whole = rest < 0.5 || (rest == 0.5 && isEven) ? below : below + 1;
        overflowed_ |= whole > std::numeric_limits<std::int32_t>::max();
        return whole;
    }

    bool overflowed_ = false;
};

}  // namespace tests
